// SPDX-License-Identifier: MIT
#pragma once

#include "app/BuildNews.h"

#include <QWidget>

class QBoxLayout;
class QPushButton;

namespace kestrel {

class Announcement;
class BuildMark;
class WrappedLabel;

/// The strip above the console's text: what became of the latest build, and notices of others. It
/// is hidden as long as there is nothing to say.
class BuildStrip : public QWidget {
    Q_OBJECT

public:
    explicit BuildStrip(QWidget* parent = nullptr);

    /// Shows this in place of what was said before, and no notice any more. Every result is
    /// announced, also the same one again.
    void showNews(const BuildNews& news);

    /// Adds a notice below what is said about the build, in place of an earlier one. An empty one
    /// takes it away. It is not announced: whoever has it says it in the main window, too.
    void showNotice(const QString& notice);

    /// No longer offers to save and to build again.
    void withdrawOffer();

Q_SIGNALS:
    void saveAndBuildRequested();
    void saveAndRunRequested();

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void offer(BuildNews::Again again);
    void layOut();
    static void setText(WrappedLabel& label, const QString& text);

    Announcement* m_announcement;
    BuildNews m_news;
    QBoxLayout* m_layout = nullptr;
    BuildMark* m_mark;
    WrappedLabel* m_text;
    WrappedLabel* m_hint;
    WrappedLabel* m_notice;
    QPushButton* m_saveAndBuild;
};

} // namespace kestrel
