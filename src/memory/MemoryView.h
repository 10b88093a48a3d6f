// SPDX-License-Identifier: MIT
#pragma once

#include <QPointer>
#include <QWidget>

class QLabel;

namespace kestrel {

class MemoryLegend;
class MemoryList;
class MemoryModel;
class ProgramKnowledge;

/// Shows how full the banks and the memory of the program are that was built last. What comes while
/// it is hidden it takes up when it is shown.
class MemoryView : public QWidget {
    Q_OBJECT

public:
    /// Shows nothing new once `knowledge` is gone.
    explicit MemoryView(const ProgramKnowledge& knowledge, QWidget* parent = nullptr);

    /// Says something about the numbers, above them; nothing when it is empty.
    void setNote(const QString& note);

protected:
    void showEvent(QShowEvent* event) override;

private:
    void refresh();
    void copySelected() const;
    QLabel* makeText(const char* objectName);

    QPointer<const ProgramKnowledge> m_knowledge;
    MemoryModel* m_model;
    QLabel* m_summary;
    QLabel* m_note;
    MemoryList* m_list;
    MemoryLegend* m_legend;
    bool m_isStale = true;
};

} // namespace kestrel
