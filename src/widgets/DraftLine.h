// SPDX-License-Identifier: MIT
#pragma once

#include <QPointer>
#include <QWidget>

class QLabel;
class QPushButton;

namespace kestrel {

class Announcement;
class UnsavedWork;

/// The line in a pane's header that offers what was kept of unsaved work. It shows itself while
/// there is such an offer and takes no room without one.
class DraftLine : public QWidget {
    Q_OBJECT

public:
    /// `work` and `content`, which gets the focus after a button was pressed from the keyboard,
    /// are the pane's.
    DraftLine(UnsavedWork& work, QWidget& content, QWidget* parent);

    /// Puts the two buttons behind `before` in the order of Tab.
    void setTabOrderAfter(QWidget* before);

private:
    QPushButton* makeButton(const char* objectName, const QString& text, const QString& toolTip);
    void layOut();
    void showOffer();
    void act(void (UnsavedWork::*operation)());

    Announcement* m_announcement;
    UnsavedWork& m_work;
    QPointer<QWidget> m_content;
    QLabel* m_text;
    QPushButton* m_bringBack;
    QPushButton* m_drop;
};

} // namespace kestrel
