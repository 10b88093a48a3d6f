// SPDX-License-Identifier: MIT
#pragma once

#include "app/SecondaryWindow.h"
#include "build/Place.h"
#include "model/ProjectItem.h"

#include <memory>
#include <vector>

class QListWidget;

namespace kestrel {

class PlaceJump;
class PlaceList;

/// The list of the places where a name is used, one a row; choosing one goes there.
class UsesWindow : public SecondaryWindow {
    Q_OBJECT

public:
    /// Shows the uses in `places`, which must outlive this, as must `jump`.
    UsesWindow(PlaceList& places, PlaceJump& jump, QWidget* parent = nullptr);

    /// Shows the uses of this name, which the list has been filled with.
    void showUsesOf(const QString& name);

Q_SIGNALS:
    void closed();

protected:
    void hideEvent(QHideEvent* event) override;

private:
    void fill();
    void showCurrent();
    void goTo(int row);

    PlaceList& m_places;
    PlaceJump& m_jump;
    QListWidget* m_rows;
    std::vector<Place> m_uses;            ///< of the rows
    std::weak_ptr<ProjectItem> m_project; ///< whose sources they are in
};

} // namespace kestrel
