// SPDX-License-Identifier: MIT
#include "model/Json.h"

#include "model/Reason.h"

#include <algorithm>
#include <cstddef>
#include <memory>
#include <unordered_map>
#include <utility>
#include <vector>

namespace kestrel {

namespace {

using Object = Dictionary::object_t;

/// Objects with more members than this get an index of their names while they are read.
constexpr std::size_t LargestUnindexedObject = 16;

/// Reserves room for one more member. The object's vector would grow by copying all values with
/// their subtrees, because a pair with a constant key cannot be moved without risk.
void makeRoom(Object& object) {
    if (object.size() < object.capacity()) {
        return;
    }
    Object larger;
    larger.reserve(std::max<std::size_t>(2, object.size() * 2));
    for (auto& [key, value] : object) {
        larger.Object::Container::emplace_back(key, std::move(value));
    }
    object.swap(larger);
}

Dictionary& append(Object& object, std::string_view key, Dictionary value) {
    makeRoom(object);
    return object.Object::Container::emplace_back(std::string(key), std::move(value)).second;
}

/// The parser's message without its identifier in brackets. It repeats what it read, which need not
/// be UTF-8.
std::string describe(std::string_view message) {
    if (const auto end = message.find("] "); end != std::string_view::npos) {
        message.remove_prefix(end + 2);
    }
    std::string text(message);
    std::replace_if(
        text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) >= 0x80; },
        '?');
    return text;
}

/// Builds a document from the parser's events without recursion or a search through members, and
/// stops at once when it is nested too deep.
class DocumentBuilder final : public nlohmann::json_sax<Dictionary> {
public:
    Dictionary takeDocument() { return std::move(m_document); }
    bool hadRepeatedMembers() const { return m_repeatedMembers; }
    /// Why the document was refused.
    std::string takeFault() { return std::move(m_fault); }

    bool null() override { return place(nullptr); }
    bool boolean(bool value) override { return place(value); }
    bool number_integer(number_integer_t value) override { return place(value); }
    bool number_unsigned(number_unsigned_t value) override { return place(value); }
    bool number_float(number_float_t value, const string_t& /*text*/) override {
        return place(value);
    }
    bool string(string_t& value) override { return place(std::move(value)); }
    bool binary(binary_t& /*value*/) override { return false; }

    bool start_object(std::size_t /*size*/) override {
        return mayNest(++m_objects) && open(Dictionary::object());
    }
    bool end_object() override {
        --m_objects;
        m_open.pop_back();
        return true;
    }
    bool start_array(std::size_t /*size*/) override {
        return mayNest(++m_arrays) && open(Dictionary::array());
    }
    bool end_array() override {
        --m_arrays;
        m_open.pop_back();
        return true;
    }

    bool key(string_t& name) override {
        Container& object = m_open.back();
        auto& members = object.value->get_ref<Object&>();
        if (Dictionary* const former = find(object, members, name)) {
            m_repeatedMembers = true;
            object.member = former;
        } else {
            object.member = &append(members, name, nullptr);
        }
        return true;
    }

    bool parse_error(std::size_t /*position*/, const std::string& /*token*/,
                     const nlohmann::detail::exception& error) override {
        m_fault = describe(error.what());
        return false;
    }

private:
    using Index = std::unordered_map<std::string, std::size_t>;

    /// An object or array that is still being read.
    struct Container {
        Dictionary* value = nullptr;
        Dictionary* member = nullptr; ///< in an object: the place of the next value
        std::unique_ptr<Index> index; ///< in a large object: the place of each name
    };

    bool mayNest(int depth) {
        if (depth > MaximumNesting) {
            m_fault = "it is nested deeper than " + std::to_string(MaximumNesting) + " levels";
        }
        return depth <= MaximumNesting;
    }

    static Dictionary* find(Container& object, Object& members, const std::string& name) {
        if (members.size() <= LargestUnindexedObject) {
            const auto found = std::find_if(members.begin(), members.end(),
                                            [&](const auto& entry) { return entry.first == name; });
            return found == members.end() ? nullptr : &found->second;
        }
        if (!object.index) {
            object.index = std::make_unique<Index>();
            for (const auto& [present, value] : members) {
                object.index->emplace(present, object.index->size());
            }
        }
        const auto [entry, isNew] = object.index->emplace(name, members.size());
        return isNew ? nullptr
                     : &(members.begin() + static_cast<std::ptrdiff_t>(entry->second))->second;
    }

    Dictionary* put(Dictionary value) {
        if (m_open.empty()) {
            m_document = std::move(value);
            return &m_document;
        }
        Container& container = m_open.back();
        if (container.value->is_array()) {
            container.value->push_back(std::move(value));
            return &container.value->back();
        }
        *container.member = std::move(value);
        return container.member;
    }

    bool place(Dictionary value) {
        put(std::move(value));
        return true;
    }

    bool open(Dictionary value) {
        Dictionary* const placed = put(std::move(value));
        m_open.push_back({placed, nullptr, nullptr});
        return true;
    }

    Dictionary m_document;
    std::vector<Container> m_open;
    std::string m_fault;
    int m_objects = 0;
    int m_arrays = 0;
    bool m_repeatedMembers = false;
};

/// Whether `value` is nested deeper than MaximumNesting; found out without recursion.
bool isNestedTooDeep(const Dictionary& value) {
    struct Visit {
        const Dictionary* value;
        int objects;
        int arrays;
    };
    std::vector<Visit> open = {{&value, 0, 0}};
    while (!open.empty()) {
        Visit visit = open.back();
        open.pop_back();
        visit.objects += visit.value->is_object() ? 1 : 0;
        visit.arrays += visit.value->is_array() ? 1 : 0;
        if (visit.objects > MaximumNesting || visit.arrays > MaximumNesting) {
            return true;
        }
        for (const Dictionary& inner : *visit.value) {
            if (inner.is_structured()) {
                open.push_back({&inner, visit.objects, visit.arrays});
            }
        }
    }
    return false;
}

} // namespace

std::optional<Dictionary> parseJson(std::string_view text, bool* repeatedMembers,
                                    std::string* reason) {
    // The parser takes a NUL byte for the end of the document and ignores what follows.
    if (text.find('\0') != std::string_view::npos) {
        giveReason(reason, "it holds a NUL character");
        return std::nullopt;
    }
    DocumentBuilder builder;
    if (!Dictionary::sax_parse(text, &builder)) {
        giveReason(reason, builder.takeFault());
        return std::nullopt;
    }
    if (repeatedMembers != nullptr) {
        *repeatedMembers = builder.hadRepeatedMembers();
    }
    return builder.takeDocument();
}

std::optional<std::string> serialiseJson(const Dictionary& value, int indent) {
    if (isNestedTooDeep(value)) {
        return std::nullopt;
    }
    try {
        return value.dump(indent);
    } catch (const nlohmann::detail::exception&) {
        return std::nullopt; // a string that is not UTF-8
    }
}

Dictionary& appendMember(Dictionary& object, std::string_view key, Dictionary value) {
    return append(object.get_ref<Object&>(), key, std::move(value));
}

const Dictionary* member(const Dictionary& object, std::string_view key) {
    if (!object.is_object()) {
        return nullptr;
    }
    const auto& members = object.get_ref<const Object&>();
    const auto found = std::find_if(members.begin(), members.end(),
                                    [&](const auto& entry) { return entry.first == key; });
    return found == members.end() ? nullptr : &found->second;
}

bool isArrayOfObjects(const Dictionary& value) {
    return value.is_array() && std::all_of(value.begin(), value.end(),
                                           [](const Dictionary& item) { return item.is_object(); });
}

bool isObjectOfStrings(const Dictionary& value) {
    return value.is_object() && std::all_of(value.begin(), value.end(), [](const Dictionary& item) {
               return item.is_string();
           });
}

std::optional<std::string> stringMember(const Dictionary& object, std::string_view key) {
    const Dictionary* const value = member(object, key);
    if (value == nullptr || !value->is_string()) {
        return std::nullopt;
    }
    return value->get_ref<const std::string&>();
}

} // namespace kestrel
