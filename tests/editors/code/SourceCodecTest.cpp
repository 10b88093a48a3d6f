// SPDX-License-Identifier: MIT
#include "editors/code/SourceCodec.h"

#include <gtest/gtest.h>
#include <QStringEncoder>

namespace kestrel {

namespace {

using namespace std::string_literals;

std::optional<QString> decodedText(const std::string& bytes) {
    const auto source = decodeSource(bytes);
    return source ? std::optional(source->text) : std::nullopt;
}

std::string encodedAs(const char* encoding, const QString& text) {
    QStringEncoder encoder(encoding);
    EXPECT_TRUE(encoder.isValid()) << encoding;
    const QByteArray bytes = encoder.encode(text);
    EXPECT_FALSE(encoder.hasError());
    return bytes.toStdString();
}

TEST(SourceCodec, EmptyBytesAreAnEmptyText) {
    const auto source = decodeSource("");
    ASSERT_TRUE(source);
    EXPECT_EQ(source->text, QString());
    EXPECT_FALSE(source->byteOrderMark);
    EXPECT_EQ(encodeSource(*source), "");
}

TEST(SourceCodec, AByteOrderMarkOfUtf8IsKeptAsideAndWrittenAgain) {
    const std::string bytes = "\xef\xbb\xbf\xef\xbb\xbflda\n";
    const auto source = decodeSource(bytes);
    ASSERT_TRUE(source);
    EXPECT_TRUE(source->byteOrderMark);
    EXPECT_EQ(source->text, QStringLiteral("\ufefflda\n")) << "a second mark is a character";
    EXPECT_EQ(encodeSource(*source), bytes);
}

TEST(SourceCodec, AFileThatIsAMarkAndNothingElseStaysOne) {
    const auto source = decodeSource("\xef\xbb\xbf");
    ASSERT_TRUE(source);
    EXPECT_EQ(source->text, QString());
    EXPECT_EQ(encodeSource(*source), "\xef\xbb\xbf");
}

TEST(SourceCodec, Utf16AndUtf32AreKnownByTheirMarksAndSavedAsUtf8WithoutOne) {
    const QString text = QStringLiteral("; caf\u00e9 \U0001F600\r\n\tlda #0\n");
    for (const QStringConverter::Encoding encoding :
         {QStringConverter::Utf16LE, QStringConverter::Utf16BE, QStringConverter::Utf32LE,
          QStringConverter::Utf32BE}) {
        QStringEncoder encoder(encoding, QStringConverter::Flag::WriteBom);
        const QByteArray bytes = encoder.encode(text);
        const auto source = decodeSource(bytes.toStdString());
        ASSERT_TRUE(source) << encoding;
        EXPECT_EQ(source->text, text);
        EXPECT_EQ(encodeSource(*source), text.toUtf8().toStdString());
    }
}

TEST(SourceCodec, Utf16ThatBeginsWithNulIsNotTakenForUtf32) {
    EXPECT_EQ(decodedText("\xff\xfe\0\0a\0"s), QString::fromLatin1("\0a", 2));
}

TEST(SourceCodec, BrokenUtf16IsNoText) {
    EXPECT_EQ(decodedText("\xff\xfe\x61\0\x62"s), std::nullopt) << "half a unit at the end";
    EXPECT_EQ(decodedText("\xff\xfe\0\xd8\x61\0"s), std::nullopt) << "a surrogate without partner";
}

TEST(SourceCodec, JapaneseCommentsOfOldSourcesAreShownRight) {
    for (const char* comment :
         {"; \u30ad\u30e3\u30e9\u30af\u30bf\u30fc\u306e\u5ea7\u6a19\u3092\u66f4\u65b0",
          "\tlda #1 ; \u753b\u9762\u3092\u6d88\u3059", "; \u521d\u671f\u5316\n\tlda #$00"}) {
        const QString text = QString::fromUtf8(comment) + QStringLiteral("\r\n\tsta $2001\r\n");
        const auto source = decodeSource(encodedAs("Shift_JIS", text));
        ASSERT_TRUE(source);
        EXPECT_EQ(source->text, text);
        EXPECT_EQ(encodeSource(*source), text.toUtf8().toStdString());
    }
    const QString text =
        QStringLiteral("; \u30ad\u30e3\u30e9\u30af\u30bf\u30fc\u306e\u5ea7\u6a19\u3092\n");
    EXPECT_EQ(decodedText(encodedAs("EUC-JP", text)), text);
}

TEST(SourceCodec, WesternCommentsOfOldSourcesAreShownRight) {
    for (const char* comment :
         {"; caf\u00e9\n", "; \u00a9 2001\n", "; 90\u00b0\n", "; \u201cquoted\u201d \u2013 text\n",
          "; Z\u00e4hler zur\u00fccksetzen, Stra\u00dfe\n\tlda #0\n",
          "; cr\u00e9\u00e9 par Andr\u00e9, d\u00e9but de la m\u00e9moire\n\tlda #$00\n",
          "; posici\u00f3n del jugador, a\u00f1o, tama\u00f1o\n\tlda #$00\n"}) {
        const QString text = QString::fromUtf8(comment);
        EXPECT_EQ(decodedText(encodedAs("windows-1252", text)), text) << comment;
    }
}

TEST(SourceCodec, RussianCommentsAreShownRight) {
    const QString text =
        QStringLiteral("; \u041f\u0440\u0438\u0432\u0435\u0442, \u043e\u0431\u043d\u043e\u0432"
                       "\u043b\u0435\u043d\u0438\u0435 \u044d\u043a\u0440\u0430\u043d\u0430\n");
    EXPECT_EQ(decodedText(encodedAs("windows-1251", text)), text);
}

TEST(SourceCodec, InvalidUtf8IsNeverTakenForUtf8) {
    for (const std::string& bytes :
         {"a\xc0\x80"s, "a\xed\xa0\x80z"s, "a\xf4\x90\x80\x80"s, "caf\xc3"s}) {
        if (const auto source = decodeSource(bytes)) {
            EXPECT_FALSE(source->byteOrderMark);
            EXPECT_FALSE(source->text.contains(QChar::ReplacementCharacter)) << "something is lost";
        }
    }
}

TEST(SourceCodec, BytesThatArePartOfNoCharacterComeBackAsTheyWere) {
    for (const std::string& bytes :
         {"; für caf\xe9\r\n"s, "\xef\xbb\xbf\xff"s, "; Größe \xed\xa0\x80 für\n"s,
          "; 初期化 \xef\xbb\xbf\xe5\x88"s}) {
        const auto source = decodeSource(bytes);
        ASSERT_TRUE(source);
        EXPECT_TRUE(source->formerEncoding.isEmpty()) << "it is UTF-8";
        EXPECT_EQ(encodeSource(*source), bytes);
    }
}

TEST(SourceCodec, BytesThatLookLikeNoTextAreNotDecoded) {
    EXPECT_EQ(decodedText("NES\x1a\x02\x01\x00\x00\xff\xa9\x00\x8d"s), std::nullopt);
    EXPECT_EQ(decodedText("\x89PNG\r\n\x1a\n\0\0"s), std::nullopt);
    EXPECT_EQ(decodedText("\x01\x80\x02\x81"s), std::nullopt);
}

TEST(SourceCodec, ControlCharactersInValidUtf8AreText) {
    const std::string bytes = "a\0b\x01\x1a\x7f\n"s;
    const auto source = decodeSource(bytes);
    ASSERT_TRUE(source);
    EXPECT_EQ(encodeSource(*source), bytes);
}

} // namespace

} // namespace kestrel
