// SPDX-License-Identifier: MIT
#pragma once

#include "app/BuildMarkKind.h"

#include <QWidget>

namespace kestrel {

/// A mark that says how a build stands. Each kind has a shape and a name of its own, so that it is
/// told apart without colours.
class BuildMark : public QWidget {
    Q_OBJECT

public:
    explicit BuildMark(QWidget* parent = nullptr);

    BuildMarkKind kind() const { return m_kind; }
    void setKind(BuildMarkKind kind);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QColor color() const;

    BuildMarkKind m_kind = BuildMarkKind::notice;
};

} // namespace kestrel
