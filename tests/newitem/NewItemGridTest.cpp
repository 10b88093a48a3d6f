// SPDX-License-Identifier: MIT
#include "newitem/CreateNewItemDataSource.h"
#include "newitem/CreateNewItemDelegate.h"
#include "newitem/NewItemCollectionViewItem.h"
#include "newitem/WizardFixture.h"

#include <QAbstractItemModelTester>
#include <QImage>
#include <QWheelEvent>

namespace kestrel {
namespace {

using test::WizardFixture;
using Rows = std::vector<int>;

std::vector<NewItemType> someKinds(int count) {
    std::vector<NewItemType> kinds;
    kinds.reserve(static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i) {
        kinds.push_back({FileType::text, QStringLiteral("Kind %1").arg(i), {}});
    }
    return kinds;
}

TEST(CreateNewItemDataSource, KeepsTheRulesOfAModel) {
    CreateNewItemDataSource source;
    const QAbstractItemModelTester tester(&source,
                                          QAbstractItemModelTester::FailureReportingMode::Fatal);
    EXPECT_EQ(source.rowCount(), 0);
    source.setNewItems(someKinds(3));
    EXPECT_EQ(source.rowCount(), 3);
    EXPECT_EQ(source.rowCount(source.index(0)), 0);
    source.setSelectedItem(2);
    source.setNewItems(someKinds(1));
    source.setSelectedItem(0);
    source.setNewItems({});
    EXPECT_FALSE(source.data({}, Qt::DisplayRole).isValid());
}

TEST(CreateNewItemDataSource, MovingTheChoiceTellsOfBothCells) {
    CreateNewItemDataSource source;
    source.setNewItems(someKinds(3));
    Rows told;
    QObject::connect(&source, &QAbstractItemModel::dataChanged, &source,
                     [&](const QModelIndex& first, const QModelIndex& last) {
                         EXPECT_EQ(first, last);
                         told.push_back(first.row());
                     });
    source.setSelectedItem(0);
    EXPECT_EQ(told, Rows{});
    source.setSelectedItem(2);
    EXPECT_EQ(told, (Rows{0, 2}));
}

TEST(CreateNewItemDelegate, AnEmptySelectionChangesNothing) {
    CreateNewItemDataSource source;
    source.setNewItems(someKinds(3));
    const CreateNewItemDelegate delegate;
    delegate.selectionChanged({source.index(1), source.index(2)}, source);
    EXPECT_EQ(source.selectedItem(), 1);
    delegate.selectionChanged({}, source);
    EXPECT_EQ(source.selectedItem(), 1);
}

QImage paintedCell(bool checked, const QString& text, const QSize& size) {
    NewItemCollectionViewItem cell;
    cell.checkMark = checked;
    cell.text = text;
    QStyleOptionViewItem option;
    option.rect = QRect(QPoint(0, 0), size);
    QImage image(size, QImage::Format_RGB32);
    image.fill(option.palette.color(QPalette::Base));
    QPainter painter(&image);
    cell.paint(painter, option);
    return image;
}

TEST(NewItemCollectionViewItem, DrawsTheCheckMarkOnlyWhenItIsChecked) {
    const QSize size = NewItemCollectionViewItem::size(QStyleOptionViewItem().fontMetrics);
    const QImage checked = paintedCell(true, QStringLiteral("NES"), size);
    const QImage unchecked = paintedCell(false, QStringLiteral("NES"), size);
    const QRect corner(size.width() - 30, 6, 26, 26);
    const QColor mark = QPalette().color(QPalette::Highlight);
    const auto pixels = [&](const QImage& image) {
        int found = 0;
        for (int y = corner.top(); y <= corner.bottom(); ++y) {
            for (int x = corner.left(); x <= corner.right(); ++x) {
                found += image.pixelColor(x, y) == mark ? 1 : 0;
            }
        }
        return found;
    };
    EXPECT_GT(pixels(checked), 100);
    EXPECT_EQ(pixels(unchecked), 0);
}

TEST(NewItemCollectionViewItem, ALongTitleStaysInsideItsCell) {
    const QSize size = NewItemCollectionViewItem::size(QStyleOptionViewItem().fontMetrics);
    const QImage image = paintedCell(false, QString(500, QLatin1Char('W')), size);
    const QColor base = QPalette().color(QPalette::Base);
    for (int y = 0; y < size.height(); ++y) {
        EXPECT_EQ(image.pixelColor(2, y), base) << y;
        EXPECT_EQ(image.pixelColor(size.width() - 3, y), base) << y;
    }
}

class NewItemGrid : public WizardFixture {};

TEST_F(NewItemGrid, TheFirstKindIsChosenToBeginWith) {
    askForFile();
    EXPECT_EQ(checkedCells(), Rows{0});
    EXPECT_EQ(grid()->selectionModel()->selectedIndexes().size(), 1);
    EXPECT_EQ(grid()->model()->index(0, 0).data().toString(), QStringLiteral("NES Text Assembly"));
}

TEST_F(NewItemGrid, AProjectRequestShowsOneChoiceAlreadyChecked) {
    askForProject();
    EXPECT_EQ(grid()->model()->rowCount(), 1);
    EXPECT_EQ(checkedCells(), Rows{0});
}

TEST_F(NewItemGrid, AClickMovesTheCheckMark) {
    askForFile();
    clickCell(2);
    EXPECT_EQ(checkedCells(), Rows{2});
    clickCell(1);
    EXPECT_EQ(checkedCells(), Rows{1});
}

TEST_F(NewItemGrid, TheArrowKeysMoveTheCheckMark) {
    askForFile();
    press(Qt::Key_Right);
    EXPECT_EQ(checkedCells(), Rows{1});
    press(Qt::Key_End);
    EXPECT_EQ(checkedCells(), Rows{2});
    press(Qt::Key_Left);
    EXPECT_EQ(checkedCells(), Rows{1});
    press(Qt::Key_Home);
    press(Qt::Key_Left);
    EXPECT_EQ(checkedCells(), Rows{0});
}

TEST_F(NewItemGrid, TheChosenKindCannotBeUnchosen) {
    askForFile();
    clickCell(1);
    clickCell(1, Qt::ControlModifier);
    EXPECT_EQ(checkedCells(), Rows{1});
    EXPECT_EQ(grid()->selectionModel()->selectedIndexes().size(), 1);
    QTest::mouseClick(grid()->viewport(), Qt::LeftButton, {},
                      grid()->viewport()->rect().bottomRight() - QPoint(2, 2));
    press(Qt::Key_Space, Qt::ControlModifier);
    grid()->selectionModel()->clear();
    EXPECT_EQ(checkedCells(), Rows{1});
    EXPECT_EQ(grid()->selectionModel()->selectedIndexes().size(), 1);
}

TEST_F(NewItemGrid, ADoubleClickChoosesAndGoesOn) {
    askForFile();
    const QPoint centre = grid()->visualRect(grid()->model()->index(2, 0)).center();
    QTest::mouseClick(grid()->viewport(), Qt::LeftButton, {}, centre);
    QTest::mouseDClick(grid()->viewport(), Qt::LeftButton, {}, centre);
    EXPECT_EQ(page(), 1);
    EXPECT_EQ(namePage()->newItem()->itemFileType(), FileType::graphics);
}

TEST_F(NewItemGrid, AllKindsAreVisibleWithoutScrolling) {
    askForFile();
    for (int row = 0; row < 3; ++row) {
        const QRect cell = grid()->visualRect(grid()->model()->index(row, 0));
        EXPECT_TRUE(grid()->viewport()->rect().contains(cell)) << row;
        EXPECT_EQ(cell.top(), grid()->visualRect(grid()->model()->index(0, 0)).top()) << row;
    }
}

TEST_F(NewItemGrid, TheWheelTurnsNoPages) {
    askForFile();
    clickNext();
    type("name");
    clickBack();
    for (const int turn : {-120, 120}) {
        for (QWidget* target : {static_cast<QWidget*>(pages()), grid()->viewport()}) {
            const QPointF at = target->rect().center();
            QWheelEvent wheel(at, target->mapToGlobal(at), QPoint(), QPoint(turn, turn),
                              Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
            QApplication::sendEvent(target, &wheel);
            EXPECT_EQ(page(), 0);
        }
        QWheelEvent wheel(QPointF(), QPointF(), QPoint(), QPoint(turn, 0), Qt::NoButton,
                          Qt::NoModifier, Qt::NoScrollPhase, false);
        wheel.ignore();
        QApplication::sendEvent(pages(), &wheel);
        EXPECT_TRUE(wheel.isAccepted());
    }
}

} // namespace
} // namespace kestrel
