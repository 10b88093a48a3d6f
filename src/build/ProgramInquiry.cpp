// SPDX-License-Identifier: MIT
#include "build/ProgramInquiry.h"

#include "build/BackgroundWork.h"
#include "build/FactsProcess.h"
#include "facts/ProgramKnowledge.h"
#include "model/Log.h"

#include <QCoreApplication>

#include <utility>

namespace kestrel {

namespace {

/// What the background worker needs, and to whom it tells what it found.
struct Question {
    FactsRequest request;
    std::shared_ptr<StopFlag> stop;
    std::function<void(ProgramKnowledge::Facts)> answer; ///< called on the main thread
    std::function<void()> giveUp; ///< the same, when the program took too long
    QCoreApplication* application = QCoreApplication::instance();
};

void carryOut(const Question& question) {
    const auto mustStop = [&] {
        return QCoreApplication::closingDown() || question.stop->isRequested();
    };
    FactsAnswer found;
    {
        const LongWait wait;
        found = askForFacts(question.request, mustStop);
    }
    if (mustStop() || (!found.facts && !found.tookTooLong)) {
        return;
    }
    std::function<void()> tell = question.giveUp;
    if (found.facts) {
        tell = [answer = question.answer, facts = std::make_shared<const ProgramFacts>(
                                              *std::move(found.facts))] { answer(facts); };
    } else {
        writeLog(question.request.program.filename().string() + " took longer than " +
                 std::to_string(question.request.limit.count()) + " ms and was ended");
    }
    postToMainThread(question.application, [stop = question.stop, tell = std::move(tell)] {
        if (!stop->isRequested()) {
            tell();
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
    question.request = {*program, result.mainFile, result.includeFolder, m_limit};
    question.stop = stop;
    question.answer = [this, image = result.image](ProgramKnowledge::Facts facts) {
        m_knowledge.set(image, std::move(facts));
    };
    question.giveUp = [this, image = result.image] { m_knowledge.giveUp(image); };
    startInBackground([question] { carryOut(question); });
}

} // namespace kestrel
