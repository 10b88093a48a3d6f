// SPDX-License-Identifier: MIT
#pragma once

#include "editors/code/CodeEditorTextView.h"
#include "facts/ProgramFacts.h"
#include "model/Fingerprint.h"
#include "navigation/container/ContainerFixture.h"
#include "widgets/StatusBoard.h"

#include <QTextBlock>

#include <map>
#include <string>

namespace kestrel::test {

/// Projects with sources, and facts such as a build of them gives.
class SourcesTest : public ContainerTest {
protected:
    /// The contents of sources by their places below a project's folder.
    using Sources = std::map<std::string, std::string>;

    /// A registered project that lists these sources, in the order of their places.
    Node projectOf(const std::string& name, const Sources& sources) const {
        ProjectItems files;
        for (const auto& [place, content] : sources) {
            const std::filesystem::path path = std::filesystem::path("Kestrel") / name / place;
            home.write(path.string(), content);
            files.push_back(makeNode(path.filename().string(), FileType::text, {},
                                     home.path() / path.parent_path()));
        }
        const Node project = makeProject(name, files);
        NESBuildSettings settings(project);
        settings.assemblyFiles() = files;
        EXPECT_TRUE(settings.saveBuildSettings());
        return project;
    }

    std::filesystem::path at(const std::string& belowKestrel) const {
        return home.path() / "Kestrel" / belowKestrel;
    }

    /// Of a build that read the copies of these files, with this content, in a project's "tmp".
    ProgramFacts factsOf(const std::string& project, const Sources& copies) const {
        ProgramFacts facts;
        for (const auto& [name, content] : copies) {
            const Fingerprint print = fingerprintOf(content);
            facts.files.push_back(
                {at(project + "/tmp/" + name).string(), print.size, print.hash, {}});
        }
        return facts;
    }

    CodeEditorTextView& text() const { return *typing->codeEditor; }

    /// Puts the caret before the first place of a text, or `after` characters behind that.
    void putCaretAt(const QString& found, int after = 0) const {
        const auto place = text().toPlainText().indexOf(found);
        ASSERT_GE(place, 0) << found.toStdString();
        QTextCursor caret = text().textCursor();
        caret.setPosition(static_cast<int>(place) + after);
        text().setTextCursor(caret);
    }

    std::string status(StatusField field) const {
        return panes()->statusBoard()->text(field).toStdString();
    }
};

} // namespace kestrel::test
