// SPDX-License-Identifier: MIT
#include "model/Json.h"

#include <gtest/gtest.h>

namespace kestrel {
namespace {

std::string repeated(std::string_view text, int count) {
    std::string result;
    for (int i = 0; i < count; ++i) {
        result += text;
    }
    return result;
}

/// A document of `count` objects within one another.
std::string nestedObjects(int count) {
    return repeated(R"({"a":)", count) + "1" + repeated("}", count);
}

std::string nestedArrays(int count) {
    return repeated("[", count) + repeated("]", count);
}

TEST(Json, ReadsEveryKindOfValueAndWritesItAgain) {
    const std::string text =
        R"({"s":"\u00e9\"\\","i":-7,"u":18446744073709551615,"f":1.5,"t":true,"n":null,"a":[1,[],{}]})";
    const auto value = parseJson(text);
    ASSERT_TRUE(value);
    EXPECT_EQ(
        serialiseJson(*value),
        "{\"s\":\"\xc3\xa9\\\"\\\\\",\"i\":-7,\"u\":18446744073709551615,\"f\":1.5,\"t\":true,"
        "\"n\":null,\"a\":[1,[],{}]}");
}

TEST(Json, MembersKeepTheOrderOfTheDocument) {
    const auto value = parseJson(R"({"z":1,"a":2,"m":3})");
    ASSERT_TRUE(value);
    EXPECT_EQ(serialiseJson(*value), R"({"z":1,"a":2,"m":3})");
}

TEST(Json, ATopLevelFragmentIsADocument) {
    EXPECT_EQ(parseJson("7"), Dictionary(7));
    EXPECT_EQ(parseJson("\"x\""), Dictionary("x"));
}

TEST(Json, WhatIsNoJsonYieldsNothing) {
    for (const std::string_view text :
         {"", " ", "{", "[1,", "{\"a\"}", "{\"a\":1,}", "nul", "{} x", "{'a':1}", "\"\xff\"",
          "\"\\ud800\"", "// comment\n{}", "1e999"}) {
        EXPECT_FALSE(parseJson(text)) << text;
    }
}

TEST(Json, ANulByteDoesNotEndADocumentEarly) {
    EXPECT_FALSE(parseJson(std::string_view("{}\0", 3)));
    EXPECT_FALSE(parseJson(std::string_view("{}\0{\"a\":1}", 10)));
    EXPECT_FALSE(parseJson(std::string_view("\"a\0b\"", 5)));
}

TEST(Json, OneThousandLevelsOfEachAreReadAndWritten) {
    for (const std::string& text : {nestedObjects(1000), nestedArrays(1000),
                                    repeated(R"({"a":[)", 1000) + repeated("]}", 1000)}) {
        const auto value = parseJson(text);
        ASSERT_TRUE(value);
        EXPECT_EQ(serialiseJson(*value), text);
    }
}

TEST(Json, OneLevelMoreIsNotRead) {
    EXPECT_FALSE(parseJson(nestedObjects(1001)));
    EXPECT_FALSE(parseJson(nestedArrays(1001)));
    EXPECT_FALSE(parseJson(repeated(R"({"a":[)", 1000) + "[]" + repeated("]}", 1000)));
    EXPECT_FALSE(parseJson(repeated(R"({"a":[)", 1000) + "{}" + repeated("]}", 1000)));
}

TEST(Json, OneLevelMoreIsNotWritten) {
    Dictionary arrays = Dictionary::array();
    Dictionary objects = Dictionary::object();
    for (int i = 1; i < 1000; ++i) {
        arrays = Dictionary::array({std::move(arrays)});
        Dictionary outer = Dictionary::object();
        appendMember(outer, "a", std::move(objects));
        objects = std::move(outer);
    }
    EXPECT_TRUE(serialiseJson(arrays));
    EXPECT_TRUE(serialiseJson(objects));
    EXPECT_FALSE(serialiseJson(Dictionary::array({std::move(arrays)})));
    EXPECT_FALSE(serialiseJson(Dictionary::array({{{"a", std::move(objects)}}})));
}

TEST(Json, SiblingsDoNotCountAsNesting) {
    const std::string text = "[" + repeated("[],{},", 5000) + "[]]";
    EXPECT_TRUE(parseJson(text));
}

TEST(Json, AHundredThousandLevelsAreRefused) {
    EXPECT_FALSE(parseJson(nestedObjects(100'000)));
    EXPECT_FALSE(parseJson(nestedArrays(100'000)));
    EXPECT_FALSE(parseJson(repeated("[", 100'000)));
    EXPECT_FALSE(parseJson(repeated(R"([{"a":)", 50'000)));
}

TEST(Json, AValueBuiltAHundredThousandLevelsDeepIsNotWritten) {
    Dictionary value = Dictionary::array();
    for (int i = 0; i < 100'000; ++i) {
        Dictionary outer = Dictionary::array();
        outer.push_back(std::move(value));
        value = std::move(outer);
    }
    EXPECT_FALSE(serialiseJson(value));
}

TEST(Json, OfRepeatedMembersTheLastValueStaysAtTheFirstPlace) {
    bool repeatedMembers = false;
    const auto value = parseJson(R"({"a":{"x":1},"b":2,"a":[3]})", &repeatedMembers);
    ASSERT_TRUE(value);
    EXPECT_EQ(serialiseJson(*value), R"({"a":[3],"b":2})");
    EXPECT_TRUE(repeatedMembers);
    EXPECT_TRUE(parseJson(R"({"a":{"x":1},"b":{"x":1}})", &repeatedMembers));
    EXPECT_FALSE(repeatedMembers);
}

TEST(Json, RepeatedMembersOfALargeObjectAreFound) {
    std::string text = "{";
    for (int i = 0; i < 100; ++i) {
        text += "\"" + std::to_string(i) + "\":" + std::to_string(i) + ",";
    }
    bool repeatedMembers = false;
    const auto value = parseJson(text + R"("3":"x","99":"y"})", &repeatedMembers);
    ASSERT_TRUE(value);
    EXPECT_TRUE(repeatedMembers);
    ASSERT_EQ(value->size(), 100U);
    EXPECT_EQ(stringMember(*value, "3"), "x");
    EXPECT_EQ(stringMember(*value, "99"), "y");
    EXPECT_EQ(*member(*value, "16"), 16);
    EXPECT_EQ(*member(*value, "17"), 17);
}

TEST(Json, AnObjectOfManyMembersIsReadWithoutSearchingAllOfThem) {
    // Comparing every name with every other would take a minute here.
    constexpr int Count = 100'000;
    std::string text = "{";
    for (int i = 0; i < Count; ++i) {
        text += "\"member " + std::to_string(i) + "\":0,";
    }
    text += "\"last\":1}";
    const auto value = parseJson(text);
    ASSERT_TRUE(value);
    EXPECT_EQ(value->size(), Count + 1U);
    EXPECT_EQ(value->get_ref<const Dictionary::object_t&>().back().first, "last");
}

TEST(Json, TextThatIsNotUtf8IsNotWritten) {
    EXPECT_FALSE(serialiseJson(Dictionary("\xff")));
    EXPECT_FALSE(serialiseJson(Dictionary("\xc3")));
    Dictionary object = Dictionary::object();
    appendMember(object, "\xff", 1);
    EXPECT_FALSE(serialiseJson(object));
}

TEST(Json, ControlCharactersAndNulSurvive) {
    const std::string text("a\0b\n\x01", 5);
    const auto written = serialiseJson(Dictionary(text));
    ASSERT_TRUE(written);
    EXPECT_EQ(parseJson(*written), Dictionary(text));
}

TEST(Json, IndentingPutsEachMemberOnALine) {
    EXPECT_EQ(serialiseJson(*parseJson(R"({"a":1,"b":[]})"), 4),
              "{\n    \"a\": 1,\n    \"b\": []\n}");
}

TEST(Json, AppendingMovesWhatIsThereAlready) {
    Dictionary object = Dictionary::object();
    appendMember(object, "list", Dictionary::array({1, 2}));
    const auto* const list = member(object, "list")->get_ptr<const Dictionary::array_t*>();
    for (int i = 0; i < 100; ++i) {
        appendMember(object, std::to_string(i), i);
    }
    EXPECT_EQ(object.size(), 101U);
    EXPECT_EQ(member(object, "list")->get_ptr<const Dictionary::array_t*>(), list);
    EXPECT_EQ(*member(object, "99"), 99);
}

TEST(Json, AMemberIsFoundInAnObjectOnly) {
    const Dictionary object = *parseJson(R"({"a":null,"b":"x"})");
    EXPECT_NE(member(object, "a"), nullptr);
    EXPECT_EQ(member(object, "c"), nullptr);
    EXPECT_EQ(member(Dictionary("a"), "a"), nullptr);
    EXPECT_EQ(member(Dictionary::array({"a"}), "a"), nullptr);
}

TEST(Json, AMemberOfTheWrongTypeIsNoString) {
    const Dictionary object = *parseJson(R"({"n":1,"s":"x","z":null,"a":["x"]})");
    EXPECT_EQ(stringMember(object, "s"), "x");
    for (const char* key : {"n", "z", "a", "none"}) {
        EXPECT_EQ(stringMember(object, key), std::nullopt) << key;
    }
    EXPECT_EQ(stringMember(Dictionary(7), "s"), std::nullopt);
}

TEST(Json, ListsAndObjectsOfOneKindAreTold) {
    EXPECT_TRUE(isArrayOfObjects(*parseJson("[]")));
    EXPECT_TRUE(isArrayOfObjects(*parseJson("[{},{}]")));
    EXPECT_FALSE(isArrayOfObjects(*parseJson("[{},1]")));
    EXPECT_FALSE(isArrayOfObjects(*parseJson("{}")));
    EXPECT_TRUE(isObjectOfStrings(*parseJson(R"({"a":"b"})")));
    EXPECT_TRUE(isObjectOfStrings(*parseJson("{}")));
    EXPECT_FALSE(isObjectOfStrings(*parseJson(R"({"a":"b","c":1})")));
    EXPECT_FALSE(isObjectOfStrings(*parseJson("[]")));
}

/// Why `text` is refused; empty when it is not.
std::string reasonFor(const std::string& text) {
    std::string reason;
    const bool isRead = parseJson(text, nullptr, &reason).has_value();
    EXPECT_EQ(isRead, reason.empty());
    return reason;
}

TEST(Json, SaysAtWhichPlaceATextIsNoJson) {
    EXPECT_EQ(reasonFor("{}"), "");
    EXPECT_TRUE(reasonFor("").starts_with("parse error at line 1, column 1: "));
    const std::string reason = reasonFor("{\"a\": 1,\n  b}");
    EXPECT_TRUE(reason.starts_with("parse error at line 2, column 3: ")) << reason;
}

TEST(Json, TheReasonIsOfOneLineAndAscii) {
    for (const std::string text : {"{\"a\": \"\n\"}", "[\"\xff\"]", "\xc3\xa9", "[\x1b[31m"}) {
        for (const char character : reasonFor(text)) {
            EXPECT_TRUE(character >= 0x20 && character < 0x7F) << text;
        }
    }
}

TEST(Json, SaysThatADocumentIsTooDeepOrHoldsANulCharacter) {
    EXPECT_EQ(reasonFor(nestedObjects(1000)), "");
    EXPECT_EQ(reasonFor(nestedObjects(1001)), "it is nested deeper than 1000 levels");
    EXPECT_EQ(reasonFor(nestedArrays(1001)), "it is nested deeper than 1000 levels");
    EXPECT_EQ(reasonFor(std::string("{}\0", 3)), "it holds a NUL character");
}

} // namespace
} // namespace kestrel
