// SPDX-License-Identifier: MIT
#pragma once

#include "assembler/messages/Message.h"
#include "assembler/reading/Origins.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

namespace nesasm {

/// Receives text to be shown: always valid UTF-8.
using TextSink = std::function<void(std::string_view)>;

/// In which form something is said: as lines for people, without colours or with them, or as JSON
/// objects for programs, one a line.
enum class MessageForm : std::uint8_t { plain, coloured, json };

/// The whole of a message: its place, its line and the way that led there.
std::string messageText(MessageForm form, const Message& message, const Origins& origins);

/// An error that has no place in the source.
std::string errorText(MessageForm form, std::string_view text);

/// Something that explains how messages came about.
std::string noteText(MessageForm form, std::string_view text);

/// How many there were.
std::string countText(MessageForm form, std::size_t errors, std::size_t warnings);

} // namespace nesasm
