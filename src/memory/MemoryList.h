// SPDX-License-Identifier: MIT
#pragma once

#include <QListView>

namespace kestrel {

/// The list of the memory window. Rows follow its width; without any, it says why.
class MemoryList : public QListView {
    Q_OBJECT

public:
    /// `emptyText` is shown, and told to assistive technology, while there are no rows.
    explicit MemoryList(const QString& emptyText, QWidget* parent = nullptr);

    void setModel(QAbstractItemModel* model) override;

Q_SIGNALS:
    /// The selected rows are to be copied.
    void copyWanted();

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    bool isEmpty() const;
    void rowsReplaced();

    QString m_emptyText;
};

} // namespace kestrel
