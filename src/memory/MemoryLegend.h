// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

namespace kestrel {

/// Says below the bars what their parts mean.
class MemoryLegend : public QWidget {
    Q_OBJECT

public:
    explicit MemoryLegend(QWidget* parent = nullptr);

    /// Named addresses are explained only where there are any.
    void setHasNamed(bool hasNamed);

private:
    QWidget* m_named = nullptr;
};

} // namespace kestrel
