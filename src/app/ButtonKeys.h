// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>

namespace kestrel {

/// Lets Return and Enter press a focused button as Space does, once however long they are held. Qt
/// leaves these keys to what is around a button, such as a bar that searches or a dialog's default
/// button, unless the button is a dialog's push button; and that it presses again and again.
class ButtonKeys : public QObject {
    Q_OBJECT

public:
    /// Acts in the whole application until it is destroyed.
    explicit ButtonKeys(QObject* parent = nullptr);

    bool eventFilter(QObject* watched, QEvent* event) override;
};

} // namespace kestrel
