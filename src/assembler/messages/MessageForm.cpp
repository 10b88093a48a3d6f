// SPDX-License-Identifier: MIT
#include "assembler/messages/MessageForm.h"

#include "assembler/messages/JsonMessages.h"
#include "assembler/messages/TextMessages.h"
#include "assembler/text/Text.h"

namespace nesasm {

std::string messageText(MessageForm form, const Message& message, const Origins& origins) {
    return form == MessageForm::json ? jsonMessage(message, origins)
                                     : textMessage(message, origins, form == MessageForm::coloured);
}

std::string errorText(MessageForm form, std::string_view text) {
    return form == MessageForm::json ? jsonRemark("error", text)
                                     : "error: " + printable(text) + "\n";
}

std::string noteText(MessageForm form, std::string_view text) {
    return form == MessageForm::json ? jsonRemark("note", text) : printable(text) + "\n";
}

std::string countText(MessageForm form, std::size_t errors, std::size_t warnings) {
    std::string text;
    if (errors != 0) {
        text = counted(errors, "error");
    }
    if (warnings != 0) {
        text.append(text.empty() ? "" : ", ").append(counted(warnings, "warning"));
    }
    return form == MessageForm::json ? jsonCount(text, errors, warnings) : text + "\n";
}

} // namespace nesasm
