// SPDX-License-Identifier: MIT
#include "build/ProgramInquiry.h"

#include "build/BackgroundWork.h"
#include "build/FactsProcess.h"
#include "facts/ProgramKnowledge.h"

#include <QCoreApplication>

#include <utility>

namespace kestrel {

namespace {

/// What the background worker needs, and to whom it tells what it found.
struct Question {
    FactsRequest request;
    std::shared_ptr<StopFlag> stop;
    std::function<void(ProgramKnowledge::Facts)> answer; ///< called on the main thread
    QCoreApplication* application = QCoreApplication::instance();
};

void carryOut(const Question& question) {
    const auto mustStop = [&] {
        return QCoreApplication::closingDown() || question.stop->isRequested();
    };
    std::optional<ProgramFacts> found;
    {
        const LongWait wait;
        found = askForFacts(question.request, mustStop);
    }
    if (!found || mustStop()) {
        return;
    }
    postToMainThread(question.application,
                     [stop = question.stop, answer = question.answer,
                      facts = std::make_shared<const ProgramFacts>(*std::move(found))] {
                         if (!stop->isRequested()) {
                             answer(facts);
                         }
                     });
}

} // namespace

ProgramInquiry::ProgramInquiry(ProgramKnowledge& knowledge, AssemblerLocator locator)
    : m_knowledge(knowledge)
    , m_locator(std::move(locator)) {}

ProgramInquiry::~ProgramInquiry() {
    if (m_stop) {
        m_stop->request();
    }
}

BuildObserver ProgramInquiry::nextBuild() {
    if (m_stop) {
        m_stop->request();
    }
    m_stop = std::make_shared<StopFlag>();
    return [this, stop = m_stop](const BuildResult& result) {
        // This is gone only after the flag was set.
        if (!stop->isRequested() && result.isGood()) {
            ask(result, stop);
        }
    };
}

void ProgramInquiry::ask(const BuildResult& result, const std::shared_ptr<StopFlag>& stop) {
    const auto program = m_locator ? m_locator() : std::nullopt;
    if (!program) {
        return;
    }
    Question question;
    question.request = {*program, result.mainFile, result.includeFolder};
    question.stop = stop;
    question.answer = [this, image = result.image](ProgramKnowledge::Facts facts) {
        m_knowledge.set(image, std::move(facts));
    };
    startInBackground([question] { carryOut(question); });
}

} // namespace kestrel
