// SPDX-License-Identifier: MIT
#pragma once

#include <QListView>
#include <QString>

namespace kestrel {

/// A list view of files with a text for the empty list and a Delete key.
class BuildFileTable : public QListView {
    Q_OBJECT

public:
    explicit BuildFileTable(QWidget* parent = nullptr);

    /// What is painted while there is no row.
    void setPlaceholderText(const QString& text);

    /// The selected row; -1 without one.
    int selectedRow() const;

    /// Selects exactly this row and brings it into sight; any other number selects nothing.
    void selectRow(int row);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

    void reset() override;

Q_SIGNALS:
    /// Another row is selected, or none any more.
    void selectedRowChanged();
    /// Delete or Backspace was pressed.
    void deletePressed();

protected:
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void selectionChanged(const QItemSelection& selected,
                          const QItemSelection& deselected) override;

private:
    QString m_placeholderText;
};

} // namespace kestrel
