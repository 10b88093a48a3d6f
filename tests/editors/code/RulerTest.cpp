// SPDX-License-Identifier: MIT
#include "editors/code/CodeEditorTextView.h"
#include "editors/code/LineNumberRulerView.h"

#include <gtest/gtest.h>
#include <QApplication>
#include <QPainter>
#include <QScrollBar>
#include <QTest>
#include <QTextBlock>

#include <cmath>

namespace kestrel {

namespace {

/// How much lighter or darker than its surroundings a pixel must be to count as part of a glyph.
constexpr int InkThreshold = 40;

class Ruler : public ::testing::Test {
protected:
    void SetUp() override {
        editor.lnv_setUpLineNumberView();
        editor.resize(400, 300);
        editor.show();
        QApplication::processEvents();
    }

    LineNumberRulerView& ruler() { return *editor.lineNumberView(); }

    QStringList texts() {
        QStringList texts;
        for (const LineNumberRulerView::Label& label : ruler().labels()) {
            texts += label.text;
        }
        return texts;
    }

    static QStringList numbers(int first, int last) {
        QStringList texts;
        for (int i = first; i <= last; ++i) {
            texts += QString::number(i);
        }
        return texts;
    }

    void load(const QString& text) { editor.source().load(text); }

    /// Where a block's first line begins, in the viewport.
    qreal topOf(int blockNumber) {
        QTextCursor cursor(editor.document()->findBlockByNumber(blockNumber));
        return editor.cursorRect(cursor).top();
    }

    /// The rows and columns of `image` that the ruler's labels have ink in, in Qt's
    /// pixels.
    static QRectF ink(const QImage& image, const QRect& part) {
        const QColor background = image.pixelColor(0, 0);
        QRect found;
        for (int y = part.top(); y <= part.bottom(); ++y) {
            for (int x = part.left(); x <= part.right(); ++x) {
                if (std::abs(image.pixelColor(x, y).lightness() - background.lightness()) >
                    InkThreshold) {
                    found |= QRect(x, y, 1, 1);
                }
            }
        }
        return found;
    }

    CodeEditorTextView editor;
};

TEST_F(Ruler, AnEmptyTextIsLineOne) {
    EXPECT_EQ(texts(), numbers(1, 1));
    EXPECT_NEAR(ruler().labels().front().top, topOf(0), 1);
}

TEST_F(Ruler, TwoLinesWithoutAFinalNewlineAreOneAndTwo) {
    load(QStringLiteral("one\ntwo"));
    EXPECT_EQ(texts(), numbers(1, 2));
}

TEST_F(Ruler, TheEmptyLineAfterAFinalNewlineIsNumbered) {
    load(QStringLiteral("one\ntwo\n"));
    EXPECT_EQ(texts(), numbers(1, 3));
    EXPECT_NEAR(ruler().labels().back().top, topOf(2), 1);
}

TEST_F(Ruler, TheFurtherPartsOfAWrappedLineGetADash) {
    const int columns = editor.viewport()->width() / editor.fontMetrics().horizontalAdvance(u'x');
    load(QString(columns * 5 / 2, u'x') + QStringLiteral("\nlast"));
    EXPECT_EQ(texts(), (QStringList{QStringLiteral("1"), QStringLiteral("-"), QStringLiteral("-"),
                                    QStringLiteral("2")}));
    EXPECT_NEAR(ruler().labels().back().top, topOf(1), 1);
    const auto labels = ruler().labels();
    const qreal height = labels[1].top - labels[0].top;
    EXPECT_GT(height, 10);
    EXPECT_NEAR(labels[3].top - labels[2].top, height, 0.01);
}

TEST_F(Ruler, TheTopLabelAfterScrollingIsTheFirstVisibleLine) {
    load(QStringLiteral("nop\n").repeated(500));
    editor.verticalScrollBar()->setValue(119);
    EXPECT_EQ(texts().front(), QStringLiteral("120"));
    EXPECT_NEAR(ruler().labels().front().top, topOf(119), 1);
    const int shown = static_cast<int>(texts().size());
    EXPECT_EQ(texts(), numbers(120, 119 + shown));
    const qreal lineHeight = QFontMetricsF(editor.font()).height();
    EXPECT_NEAR(shown, editor.viewport()->height() / lineHeight, 1.5) << "only what is visible";
}

TEST_F(Ruler, ScrolledIntoAWrappedLineItsPartsAreDashes) {
    const int columns = editor.viewport()->width() / editor.fontMetrics().horizontalAdvance(u'x');
    load(QString(columns * 100, u'x') + QStringLiteral("\nlast"));
    QApplication::processEvents();
    editor.verticalScrollBar()->setValue(10);
    const QStringList shown = texts();
    ASSERT_GT(shown.size(), 5);
    EXPECT_EQ(shown.count(QStringLiteral("-")), shown.size());
    EXPECT_GT(ruler().labels().front().top, -QFontMetricsF(editor.font()).height());
    editor.verticalScrollBar()->setValue(editor.verticalScrollBar()->maximum());
    EXPECT_EQ(texts().back(), QStringLiteral("2"));
}

TEST_F(Ruler, LabelsOfAnyLengthEndAtTheSameEdge) {
    load(QStringLiteral("nop\n").repeated(221000));
    for (const int line : {1, 98, 998, 9998, 99998, 220998}) {
        editor.verticalScrollBar()->setValue(line - 1);
        for (const LineNumberRulerView::Label& label : ruler().labels()) {
            EXPECT_NEAR(label.left() + label.width, LineNumberRulerView::LabelEdge, 0.001);
            EXPECT_GE(label.left(), 0) << label.text.toStdString();
            if (label.text.size() <= 4) {
                EXPECT_EQ(label.font, editor.font()) << label.text.toStdString();
            }
        }
    }
}

TEST_F(Ruler, LabelsThatAreTooWideStayWholeAndReadable) {
    load(QStringLiteral("nop\n").repeated(12000));
    editor.verticalScrollBar()->setValue(11000);
    const auto labels = ruler().labels();
    EXPECT_EQ(labels.front().text, QStringLiteral("11001"));
    EXPECT_LE(labels.front().width, LineNumberRulerView::LabelEdge);
    EXPECT_GT(labels.front().width, LineNumberRulerView::LabelEdge - 4);
    EXPECT_EQ(labels.front().font.family(), editor.font().family());
    EXPECT_EQ(labels.front().font.pixelSize(), editor.font().pixelSize()) << "narrower is enough";
    editor.zoomBy(20);
    for (const LineNumberRulerView::Label& label : ruler().labels()) {
        EXPECT_GE(label.left(), 0);
        EXPECT_LE(label.left() + label.width, LineNumberRulerView::LabelEdge + 0.001);
        EXPECT_GE(label.font.pixelSize(), 9);
    }
}

TEST_F(Ruler, ALoneReturnEndsALineButTheStartCountsLineFeedsOnly) {
    load(QStringLiteral("a\rb\nc"));
    EXPECT_EQ(texts(), numbers(1, 3));
    load(QStringLiteral("a\rb\nc\n") + QStringLiteral("nop\n").repeated(100));
    editor.verticalScrollBar()->setValue(1);
    EXPECT_EQ(texts().first(2), numbers(1, 2));
    editor.verticalScrollBar()->setValue(2);
    EXPECT_EQ(texts().first(2), numbers(2, 3));
    editor.verticalScrollBar()->setValue(0);
    EXPECT_EQ(texts().first(3), numbers(1, 3));
}

TEST_F(Ruler, LoneReturnsAreCountedThroughEditsAndUndo) {
    QString text;
    for (int i = 0; i < 300; ++i) {
        text += i % 3 == 0 ? QStringLiteral("a\r") : QStringLiteral("a\r\n");
    }
    load(text);
    const auto topNumber = [&](int block) {
        editor.verticalScrollBar()->setValue(block);
        return texts().front().toInt();
    };
    EXPECT_EQ(topNumber(240), 240 - 80 + 1);
    EXPECT_EQ(topNumber(120), 120 - 40 + 1);
    QTextCursor cursor(editor.document());
    cursor.movePosition(QTextCursor::End);
    cursor.setPosition(0);
    cursor.setPosition(2, QTextCursor::KeepAnchor);
    cursor.removeSelectedText();
    EXPECT_EQ(topNumber(239), 239 - 79 + 1);
    cursor.movePosition(QTextCursor::Start);
    editor.setTextCursor(cursor);
    QTest::keyClick(&editor, Qt::Key_Return);
    EXPECT_EQ(topNumber(240), 240 - 79 + 1);
    editor.undo();
    editor.undo();
    EXPECT_EQ(topNumber(240), 240 - 80 + 1);
    EXPECT_EQ(topNumber(7), 7 - 3 + 1);
}

TEST_F(Ruler, FollowsResizingFontAndUndoWithoutLaggingAFrame) {
    // What is painted must be right at the first painting after each change.
    const auto painted = [&] {
        const QImage image = editor.grab().toImage();
        QImage expected(ruler().size(), QImage::Format_RGB32);
        ruler().render(&expected);
        return image.copy(ruler().geometry()).convertToFormat(QImage::Format_RGB32) == expected;
    };
    load(QStringLiteral("a long line of many words that wraps in a narrow view\n").repeated(50));
    EXPECT_TRUE(painted());
    const QStringList wide = texts();
    editor.resize(200, 300);
    EXPECT_TRUE(painted());
    EXPECT_NE(texts(), wide);
    editor.zoomBy(4);
    EXPECT_TRUE(painted());
    editor.verticalScrollBar()->setValue(20);
    EXPECT_TRUE(painted());
    editor.moveCursor(QTextCursor::End);
    QTest::keyClick(&editor, Qt::Key_Return);
    EXPECT_TRUE(painted());
    EXPECT_EQ(texts().back(), QStringLiteral("52"));
    editor.undo();
    EXPECT_TRUE(painted());
    EXPECT_EQ(texts().back(), QStringLiteral("51"));
}

TEST_F(Ruler, AChangeOnScreenRepaintsTheRulerInTheSameRound) {
    class PaintCounter : public QObject {
    public:
        int paints = 0;
        bool eventFilter(QObject* watched, QEvent* event) override {
            paints += event->type() == QEvent::Paint ? 1 : 0;
            return QObject::eventFilter(watched, event);
        }
    } counter;
    load(QStringLiteral("nop\n").repeated(100));
    QApplication::processEvents();
    ruler().installEventFilter(&counter);
    const auto paintsAfter = [&](const auto& change) {
        QApplication::processEvents();
        counter.paints = 0;
        change();
        QApplication::processEvents();
        return counter.paints;
    };
    EXPECT_GT(paintsAfter([&] { QTest::keyClick(&editor, Qt::Key_Return); }), 0);
    EXPECT_GT(paintsAfter([&] { editor.undo(); }), 0);
    EXPECT_GT(paintsAfter([&] { editor.redo(); }), 0);
    EXPECT_GT(paintsAfter([&] { editor.verticalScrollBar()->setValue(5); }), 0);
    EXPECT_GT(paintsAfter([&] { editor.zoomBy(1); }), 0);
    EXPECT_GT(paintsAfter([&] { editor.reload(); }), 0);
    EXPECT_GT(paintsAfter([&] { editor.resize(300, 250); }), 0);
}

TEST_F(Ruler, PaintsLabelsRightAlignedBesideTheirLines) {
    load(QStringLiteral("nop\n").repeated(1200));
    for (const int first : {0, 97, 997}) {
        editor.verticalScrollBar()->setValue(first);
        const QImage image = ruler().grab().toImage();
        for (const LineNumberRulerView::Label& label : ruler().labels()) {
            const int top = static_cast<int>(std::round(label.top));
            const int height = editor.fontMetrics().height();
            if (top < 0 || top + height > image.height()) {
                continue;
            }
            const QRectF found = ink(image, QRect(0, top, image.width(), height));
            const std::string text = label.text.toStdString();
            // The last digit's ink ends a little before the edge of its cell.
            EXPECT_LE(found.right(), LineNumberRulerView::LabelEdge) << text;
            EXPECT_GT(found.right(), LineNumberRulerView::LabelEdge - 4) << text;
            EXPECT_NEAR(found.width(), label.width, 4) << text;
            EXPECT_GT(found.height(), 6) << text;
        }
    }
}

TEST_F(Ruler, IsFortyPixelsWideBesideTheText) {
    EXPECT_EQ(ruler().width(), 40);
    EXPECT_EQ(ruler().height(), editor.viewport()->height());
    EXPECT_EQ(ruler().geometry().right() + 1, editor.viewport()->geometry().left());
}

TEST_F(Ruler, IsReadableInLightAndDarkThemes) {
    const auto luminance = [](const QColor& color) {
        const auto linear = [](double part) {
            return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
        };
        return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) +
               0.0722 * linear(color.blueF());
    };
    for (const QColor& base : {QColor(Qt::white), QColor(0x1e, 0x1e, 0x1e), QColor(Qt::black),
                               QColor(0x2b, 0x30, 0x3b), QColor(0x77, 0x77, 0x77)}) {
        QPalette palette = editor.palette();
        palette.setColor(QPalette::Base, base);
        editor.setPalette(palette);
        const QColor gray = ruler().labelColor();
        EXPECT_EQ(gray.red(), gray.green());
        EXPECT_EQ(gray.red(), gray.blue());
        double lighter = luminance(gray) + 0.05;
        double darker = luminance(ruler().backgroundColor()) + 0.05;
        if (lighter < darker) {
            std::swap(lighter, darker);
        }
        EXPECT_GE(lighter / darker, 4.5) << base.name().toStdString();
        EXPECT_EQ(ruler().grab().toImage().pixel(1, 1), ruler().backgroundColor().rgb());
    }
}

TEST_F(Ruler, SettingUpTwiceKeepsTheRuler) {
    LineNumberRulerView* former = editor.lineNumberView();
    editor.lnv_setUpLineNumberView();
    EXPECT_EQ(editor.lineNumberView(), former);
}

TEST(RulerSetUp, AViewWithoutAFontGetsTheSystemFontAtSixteenPixels) {
    LineNumberedTextView view;
    EXPECT_EQ(view.lineNumberView(), nullptr);
    view.reload();
    view.lnv_setUpLineNumberView();
    EXPECT_EQ(view.font().pixelSize(), 16);
    ASSERT_NE(view.lineNumberView(), nullptr);
    EXPECT_EQ(view.lineNumberView()->font(), view.font());
}

TEST(RulerSetUp, FourDigitsFitInTheEditorsOwnFont) {
    const CodeEditorTextView editor;
    EXPECT_TRUE(QFontInfo(editor.font()).fixedPitch());
    EXPECT_LE(QFontMetricsF(editor.font()).horizontalAdvance(QStringLiteral("8888")),
              LineNumberRulerView::LabelEdge);
}

} // namespace

} // namespace kestrel
