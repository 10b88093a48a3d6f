// SPDX-License-Identifier: MIT
#include "chrcanvas/data/GeneralNESColorPalette.h"
#include "chrcanvas/data/MasterColors.h"
#include "chrcanvas/data/NESPalette.h"
#include "chrcanvas/views/ColorSelector.h"
#include "chrcanvas/views/GeneralColorSelector.h"
#include "chrcanvas/views/PaletteSelector.h"

#include <gtest/gtest.h>
#include <QAccessible>
#include <QTest>

#include <algorithm>
#include <iterator>
#include <memory>
#include <vector>

namespace kestrel::test {
namespace {

class CountingDelegate : public BoxSelectorDelegate {
public:
    std::vector<PaletteBox> chosen;
    void selected(BoxSelectorProtocol& /*boxSelector*/, PaletteBox palette,
                  BoxPosition /*boxSelected*/) override {
        chosen.push_back(palette);
    }
};

/// Writes down what assistive technology is told; the platform of the tests has none.
class ReportingSelector : public ColorSelector {
public:
    QStringList reports;

protected:
    void report(QAccessibleEvent& event) override {
        if (event.type() == QAccessible::ValueChanged) {
            reports += static_cast<QAccessibleValueChangeEvent&>(event).value().toString();
        } else {
            const QString names[] = {QStringLiteral("focus"), QStringLiteral("selection"),
                                     QStringLiteral("name")};
            const QAccessible::Event types[] = {QAccessible::Focus, QAccessible::Selection,
                                                QAccessible::NameChanged};
            const auto* found = std::find(std::begin(types), std::end(types), event.type());
            ASSERT_NE(found, std::end(types));
            reports +=
                QStringLiteral("%1 %2").arg(names[found - std::begin(types)]).arg(event.child());
        }
        ColorSelector::report(event);
    }
};

class BoxSelectorAccessibility : public ::testing::Test {
protected:
    void SetUp() override {
        view->setDelegate(&delegate);
        view->setPalettes({NESPalette::fromData("\x0F\x16\x27\x0D")});
        view->resize(view->sizeHint());
        view->show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(view.get()));
        view->reports.clear();
    }

    QAccessibleInterface* list() const { return QAccessible::queryAccessibleInterface(view.get()); }

    CountingDelegate delegate;
    std::unique_ptr<ReportingSelector> view = std::make_unique<ReportingSelector>();
};

TEST_F(BoxSelectorAccessibility, ASelectorHasARoleANameAndAValue) {
    ASSERT_NE(list(), nullptr);
    EXPECT_EQ(list()->role(), QAccessible::List);
    EXPECT_EQ(list()->text(QAccessible::Name), QStringLiteral("Colours of the palette"));
    EXPECT_EQ(list()->text(QAccessible::Value), QStringLiteral("Colour 0 of 4, index $0F – the "
                                                               "usual black"));
    view->selectBoxNumber(1);
    EXPECT_EQ(list()->text(QAccessible::Value), QStringLiteral("Colour 1 of 4, index $16"));
}

TEST_F(BoxSelectorAccessibility, TheOtherSelectorsHaveThemToo) {
    GeneralColorSelector grid;
    grid.setPalettes({std::make_shared<GeneralNESColorPalette>()});
    QAccessibleInterface* all = QAccessible::queryAccessibleInterface(&grid);
    EXPECT_EQ(all->text(QAccessible::Name), QStringLiteral("All colours of the console"));
    EXPECT_EQ(all->text(QAccessible::Value), QStringLiteral("Index $00, row 0, column 0"));
    EXPECT_EQ(all->childCount(), 64);

    PaletteSelector rows;
    rows.setPalettes({std::make_shared<NESPalette>(), std::make_shared<NESPalette>()});
    QAccessibleInterface* file = QAccessible::queryAccessibleInterface(&rows);
    EXPECT_EQ(file->text(QAccessible::Name), QStringLiteral("Palettes of the file"));
    EXPECT_EQ(file->childCount(), 8);
    EXPECT_EQ(file->child(6)->text(QAccessible::Name),
              QStringLiteral("Palette 1 (background 1), colour 2 of 4, index $00"));
}

TEST_F(BoxSelectorAccessibility, EachBoxIsAnItemOfItsOwn) {
    ASSERT_EQ(list()->childCount(), 4);
    EXPECT_EQ(list()->child(4), nullptr);
    EXPECT_EQ(list()->child(-1), nullptr);
    for (int index = 0; index < 4; ++index) {
        QAccessibleInterface* box = list()->child(index);
        ASSERT_NE(box, nullptr);
        EXPECT_TRUE(box->isValid());
        EXPECT_EQ(box->role(), QAccessible::ListItem);
        EXPECT_EQ(box->parent(), list());
        EXPECT_EQ(list()->indexOfChild(box), index);
        EXPECT_EQ(box->state().selected, index == 0);
        const QPoint center = box->rect().center();
        EXPECT_EQ(list()->childAt(center.x(), center.y()), box);
    }
    EXPECT_EQ(list()->child(3)->text(QAccessible::Name),
              QStringLiteral("Colour 3 of 4, index $0D – below black: avoid"));
}

TEST_F(BoxSelectorAccessibility, ABoxCanBePressedWithoutMouseOrKeyboard) {
    QAccessibleActionInterface* box = list()->child(2)->actionInterface();
    ASSERT_NE(box, nullptr);
    ASSERT_TRUE(box->actionNames().contains(QAccessibleActionInterface::pressAction()));
    box->doAction(QStringLiteral("unknown"));
    EXPECT_TRUE(delegate.chosen.empty());
    box->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_EQ(delegate.chosen, (std::vector<PaletteBox>{{0, 2}}));
    EXPECT_TRUE(list()->child(2)->state().selected);
}

TEST_F(BoxSelectorAccessibility, TheKeyboardsBoxHasTheFocus) {
    view->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(view.get()));
    view->setFocus();
    view->reports.clear();
    QTest::keyClick(view.get(), Qt::Key_Right);
    EXPECT_EQ(list()->focusChild(), list()->child(1));
    EXPECT_TRUE(list()->child(1)->state().focused);
    EXPECT_FALSE(list()->child(0)->state().focused);
    EXPECT_EQ(view->reports, QStringList{QStringLiteral("focus 1")});
}

TEST_F(BoxSelectorAccessibility, ChangesAreTold) {
    view->selectBoxNumber(2);
    EXPECT_EQ(view->reports, (QStringList{QStringLiteral("selection 2"),
                                          QStringLiteral("Colour 2 of 4, index $27")}));
    view->reports.clear();
    view->selectBoxNumber(2);
    view->redraw();
    EXPECT_TRUE(view->reports.isEmpty());

    view->paletteSelected()->setEntry(2, masterColor(0x11));
    view->paletteSelected()->setEntry(3, masterColor(0x12));
    view->redraw();
    EXPECT_EQ(view->reports,
              (QStringList{QStringLiteral("name 2"), QStringLiteral("Colour 2 of 4, index $11"),
                           QStringLiteral("name 3")}));
}

TEST_F(BoxSelectorAccessibility, ItemsOfBoxesThatAreGoneAreInvalid) {
    QAccessibleInterface* box = list()->child(3);
    ASSERT_TRUE(box->isValid());
    view->setPalettes({});
    EXPECT_FALSE(box->isValid());
    EXPECT_TRUE(box->rect().isEmpty());
    EXPECT_TRUE(box->text(QAccessible::Name).isEmpty());
    EXPECT_TRUE(box->state().invalid);
    EXPECT_EQ(list()->childCount(), 0);
    EXPECT_TRUE(list()->text(QAccessible::Value).isEmpty());
    EXPECT_EQ(list()->focusChild(), nullptr);
}

TEST_F(BoxSelectorAccessibility, ItemsGoWithTheView) {
    const QAccessible::Id id = QAccessible::uniqueId(list()->child(3));
    ASSERT_NE(QAccessible::accessibleInterface(id), nullptr);
    view.reset();
    EXPECT_EQ(QAccessible::accessibleInterface(id), nullptr);
}

} // namespace
} // namespace kestrel::test
