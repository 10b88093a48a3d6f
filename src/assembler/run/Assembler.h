// SPDX-License-Identifier: MIT
#pragma once

#include "assembler/language/LabelFormats.h"
#include "assembler/messages/Diagnostics.h"
#include "assembler/output/FinishedProgram.h"
#include "assembler/reading/FileReader.h"
#include "assembler/run/Options.h"
#include "assembler/values/Image.h"

#include <memory>
#include <string>

namespace nesasm {

/// Assembles one program in memory. It shares nothing with other assemblers in the process and
/// writes no file.
class Assembler {
public:
    enum class Result {
        built,
        errors,    ///< the source has errors; they have been shown
        unreadable ///< the input cannot be read; that has been shown
    };

    /// Messages go to `sink`, which must stay usable while run() runs.
    Assembler(Options options, TextSink sink);
    ~Assembler();
    Assembler(const Assembler&) = delete;
    Assembler& operator=(const Assembler&) = delete;
    Assembler(Assembler&&) = delete;
    Assembler& operator=(Assembler&&) = delete;

    /// To be called once.
    Result run();

    /// The banks and the header, complete after Result::Built.
    const Image& image() const;
    /// What is known of the run, for what is written beside the image.
    FinishedProgram program() const;
    /// The label files that the source asks for.
    const LabelFormats& labelFormats() const;
    /// True when `identity` is one of the files that were read.
    bool hasRead(const FileIdentity& identity) const;

private:
    struct Run;

    Result assemble();
    void checkHeader();
    void checkVectors();

    Options m_options;
    TextSink m_sink;
    std::unique_ptr<Run> m_run;
};

} // namespace nesasm
