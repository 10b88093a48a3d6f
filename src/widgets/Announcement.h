// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QString>

class QWidget;

namespace kestrel {

/// Has screen readers speak what a widget says, wherever the focus is. To assistive technology that
/// widget is a notification whose name is what it last said.
class Announcement : public QObject {
    Q_OBJECT

public:
    /// To be made before anything else is told of `speaker`, whose role is asked for only once.
    explicit Announcement(QWidget& speaker);

    /// Says this now, or as soon as the speaker is shown: a hidden speaker is to be shown after
    /// this, not before.
    void say(const QString& text);

Q_SIGNALS:
    /// Screen readers were told this of a speaker in sight.
    void said(const QString& text);

private:
    QWidget& m_speaker;
};

} // namespace kestrel
