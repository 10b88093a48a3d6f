// SPDX-License-Identifier: MIT
#pragma once

#include <QLineEdit>

namespace kestrel {

/// A field that shows a path which can be selected and copied but not typed, and looks like it: it
/// has no frame and the background of its window. Its text is always the whole path; where there is
/// no room for it, and while it has no focus, it is painted with its middle left out.
class PathField : public QLineEdit {
    Q_OBJECT

public:
    explicit PathField(QWidget* parent = nullptr);

    void setPath(const QString& path);

    /// What is painted while the field has no focus and is this wide.
    QString paintedText() const;

protected:
    void initStyleOption(QStyleOptionFrame* option) const override;
    void paintEvent(QPaintEvent* event) override;

private:
    QRect textPlace() const;
    void paintFocus();
};

} // namespace kestrel
