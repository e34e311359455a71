// SPDX-License-Identifier: MIT
#include "ElementFixture.h"
#include "FormKit_macOS/DropDown/DropdownCellView.h"
#include "FormKit_macOS/DropDown/DropdownPanel.h"
#include "FormKit_macOS/DropDown/TextMatch.h"
#include "FormKit_macOS/Elements/FormDropDown.h"
#include "Platform/Views/KeyboardAccess.h"
#include "Support/WaitFor.h"

#include <QInputMethodEvent>
#include <QScreen>
#include <QScrollBar>
#include <QWheelEvent>

using namespace quor::formkit;
using namespace Qt::StringLiterals;
using quor::test::waitFor;

namespace {

TEST(TextMatch, IgnoresCaseAndHowAccentsAreComposed)
{
    struct Case {
        QString text;
        QString typed;
        QString marked; ///< empty if nothing matches
    };
    const Case cases[] = {
        {u"Website"_s, u"SITE"_s, u"site"_s},
        {u"Website"_s, u"websites"_s, {}},
        {u"Website"_s, {}, {}},
        {u"Caf\u00E9 am Ring"_s, u"FE\u0301 A"_s, u"f\u00E9 a"_s},
        {u"Cafe\u0301 am Ring"_s, u"f\u00C9 a"_s, u"fe\u0301 a"_s},
        {u"Cafe\u0301"_s, u"cafe"_s, {}},
        {u"Gro\u00DFe Stra\u00DFe"_s, u"STRASSE"_s, u"Stra\u00DFe"_s},
        {u"Gro\u00DFe Stra\u00DFe"_s, u"OSSES"_s, {}},
        {u"\u039F\u0394\u039F\u03A3"_s, u"\u03B4\u03BF\u03C2"_s, u"\u0394\u039F\u03A3"_s},
        {u"\u0130zmir"_s, u"i"_s, u"\u0130"_s},
        {u"\U0001F469\u200D\U0001F4BB Work"_s, u"\U0001F4BB w"_s, u"\U0001F469\u200D\U0001F4BB W"_s},
        {u"\uD55C\uAE00"_s, u"\u1112\u1161\u11AB"_s, u"\uD55C"_s},
    };
    for (const auto& [text, typed, marked] : cases) {
        SCOPED_TRACE(qPrintable(text + u" / "_s + typed));
        const auto range = matchIn(text, foldedText(typed));
        EXPECT_EQ(range ? text.mid(range->location, range->length) : QString(), marked);
    }
}

/// "Name", indented by one level for each '>' in front. "-" is a separator.
std::vector<FormItem> itemsOf(const QStringList& names)
{
    std::vector<FormItem> items;
    for (const QString& name : names) {
        const int level = int(name.count(u'>'));
        items.push_back(name == u"-"_s ? FormItem() : FormItem(name.mid(level), name, true, level));
    }
    return items;
}

TEST(DropdownIndex, FindsItemsWithTheirParentsAndChildren)
{
    struct Case {
        QStringList names;
        QString term;
        std::vector<int> found;
    };
    const QStringList tree{u"Work"_s, u">Web"_s, u">>Design"_s, u">>Code"_s, u"-"_s, u">Mail"_s, u"Home"_s,
        u">Code"_s, u">Garden"_s};
    const Case cases[] = {
        {{}, u"a"_s, {}},
        {{u"ab"_s, u"cd"_s, u""_s, u"bc"_s, u"abc"_s}, u"bc"_s, {3, 4}},
        {{u"aaa"_s, u"aa"_s, u"a"_s}, u"AA"_s, {0, 1}},
        {{u"same"_s, u"same"_s}, u"same"_s, {0, 1}},
        {{u"short"_s}, u"longer than every name"_s, {}},
        {{u"one"_s, u"-"_s, u"two"_s}, {}, {0, 1, 2}},
        {tree, u"code"_s, {0, 1, 3, 6, 7}},
        {tree, u"web"_s, {0, 1, 2, 3}},
        {tree, u"mail"_s, {0, 5}},
        {tree, u"home"_s, {6, 7, 8}},
        {{u">>deep first"_s, u">then less"_s, u"top"_s}, u"first"_s, {0}},
    };
    for (const auto& [names, term, found] : cases) {
        SCOPED_TRACE(qPrintable(names.join(u'|') + u" / "_s + term));
        DropdownIndex index(std::make_shared<const std::vector<FormItem>>(itemsOf(names)));
        EXPECT_EQ(index.find(term, std::atomic(false)), std::optional(found));
    }
}

TEST(DropdownIndex, GoesOnAfterACancelledSearch)
{
    auto items = std::make_shared<std::vector<FormItem>>();
    for (int i = 0; i < 1000; ++i)
        items->emplace_back(QString::number(i), i);
    DropdownIndex index(items);
    EXPECT_EQ(index.find(u"99"_s, std::atomic(true)), std::nullopt);
    EXPECT_EQ(index.find(u"99"_s, std::atomic(false))->size(), 19);
}

TEST(PanelPlacement, StaysOnTheScreenAndOffTheControl)
{
    struct Case {
        QRect anchor;
        QSize size;
        Qt::LayoutDirection direction;
        QRect panel;
    };
    const QRect screen(100, 0, 1000, 600);
    const Case cases[] = {
        {{200, 100, 150, 30}, {300, 300}, Qt::LeftToRight, {200, 130, 300, 300}},
        {{400, 100, 150, 30}, {300, 300}, Qt::RightToLeft, {250, 130, 300, 300}},
        {{200, 400, 150, 30}, {300, 300}, Qt::LeftToRight, {200, 100, 300, 300}},
        {{1000, 100, 150, 30}, {300, 300}, Qt::LeftToRight, {800, 130, 300, 300}},
        {{50, 100, 150, 30}, {300, 300}, Qt::LeftToRight, {100, 130, 300, 300}},
        {{200, 250, 150, 30}, {300, 330}, Qt::LeftToRight, {200, 280, 300, 320}}, // more room below
        {{200, 320, 150, 30}, {300, 330}, Qt::LeftToRight, {200, 0, 300, 320}}, // more room above
        {{200, 100, 150, 30}, {2000, 10}, Qt::LeftToRight, {100, 130, 1000, 10}},
        {{200, 700, 150, 30}, {300, 300}, Qt::LeftToRight, {200, 300, 300, 300}}, // control below the screen
    };
    for (const auto& [anchor, size, direction, panel] : cases) {
        const auto side = panelSide(anchor, size.height(), screen);
        EXPECT_EQ(placePanel(anchor, size, screen, side, direction), panel)
            << anchor.x() << ' ' << anchor.y();
    }
}

class DropDowns : public quor::test::FormElements {
protected:
    DropDowns()
    {
        dropDown_->setValueChanged([this](FormElement&) { ++changes_; });
    }

    void fill(int count, const QString& name = u"Item %1"_s)
    {
        for (int i = 0; i < count; ++i)
            dropDown_->add({name.arg(i), i});
    }
    PopUpButton& button() { return *qobject_cast<PopUpButton*>(dropDown_->view()); }
    DropdownView& list() { return dropDown_->panel()->dropdownView(); }
    quor::toolkit::CustomTableView& table() { return *list().findChild<quor::toolkit::CustomTableView*>(); }
    QString search() { return list().searchField() ? list().searchField()->text() : u"no field"_s; }
    void key(int key) { QTest::keyClick(&list().keyboardReceiver(), Qt::Key(key)); }
    void clickRow(int row) { click(table().viewport(), table().viewportRectOfRow(row).center()); }
    void open()
    {
        button().click();
        ASSERT_TRUE(dropDown_->isOpen());
    }

    std::shared_ptr<FormDropDown> dropDown_ = add<FormDropDown>();
    int changes_ = 0;
};

TEST_F(DropDowns, SelectItemsByIndexEqualityAndValue)
{
    dropDown_->setSelectedIndex(1);
    EXPECT_EQ(dropDown_->selectedName(), std::nullopt);
    dropDown_->add({u"A & B\nC"_s, u"1"_s});
    dropDown_->addSeparator();
    dropDown_->add({u"Two"_s, 2});
    dropDown_->add({u"Another"_s, 2});
    dropDown_->setSelectedValue(u"2"_s);
    EXPECT_EQ(dropDown_->selectedIndex(), 2);
    EXPECT_EQ(dropDown_->selectedName(), u"Two"_s);
    dropDown_->setSelectedItem(FormItem(u"Another"_s, u"2"_s, false, 3));
    EXPECT_EQ(dropDown_->selectedIndex(), 3);
    EXPECT_EQ(button().title(), u"Another"_s);
    dropDown_->insert({u"New"_s, 0});
    EXPECT_EQ(dropDown_->selectedIndex(), 3);
    EXPECT_EQ(button().title(), u"Two"_s);
    EXPECT_EQ(dropDown_->index(dropDown_->items()[2]), 2);
    EXPECT_EQ(dropDown_->index(FormItem()), std::nullopt); // another separator
    for (const int index : {-1, 5})
        EXPECT_EQ(dropDown_->item(index), std::nullopt);
    dropDown_->setSelectedIndex(1);
    EXPECT_EQ(button().title(), u"A & B C"_s);
    dropDown_->setSelectedValue(u"none"_s);
    EXPECT_EQ(dropDown_->selectedIndex(), std::nullopt);
    EXPECT_EQ(button().title(), QString());
    dropDown_->setSelectedIndex(0);
    dropDown_->removeAllItems();
    EXPECT_EQ(button().title(), QString());
    EXPECT_FALSE(dropDown_->hasChanges());
    EXPECT_EQ(changes_, 0);
    EXPECT_EQ(dropDown_->focusableViews(), std::vector<QWidget*>{&button()});
    quor::platform::setFullKeyboardAccessEnabled(false);
    EXPECT_TRUE(dropDown_->focusableViews().empty());
    quor::platform::setFullKeyboardAccessEnabled(true);
}

TEST_F(DropDowns, OpenListsThatFitAndShowTheSelectedRow)
{
    show();
    button().click();
    EXPECT_FALSE(dropDown_->isOpen()); // nothing to choose
    struct Case {
        QString name;
        int count;
        bool hasSearch;
    };
    const Case cases[] = {{u"Item %1"_s, 1, false}, {u"Item %1"_s, 20, false}, {u"Item %1"_s, 21, true},
        {u"Item %1"_s, 100'000, true}, {QString(10'000, u'W') + u"%1"_s, 30, true}};
    for (const auto& [name, count, hasSearch] : cases) {
        SCOPED_TRACE(count);
        dropDown_->removeAllItems();
        fill(count, name);
        dropDown_->setSelectedIndex(count - 1);
        open();
        EXPECT_EQ(list().searchField() != nullptr, hasSearch);
        EXPECT_TRUE(list().keyboardReceiver().hasFocus());
        EXPECT_EQ(table().selectedRow(), count - 1);
        EXPECT_TRUE(table().visibleRect().contains(table().rectOfRow(count - 1)));
        EXPECT_GE(dropDown_->panel()->width(), button().width());
        EXPECT_LE(dropDown_->panel()->width(), 530);
        EXPECT_LE(dropDown_->panel()->height(), window_.screen()->availableGeometry().height() / 2);
        EXPECT_LE(table().findChildren<DropdownCellView*>().size(), 60);
        key(Qt::Key_Escape);
        EXPECT_FALSE(dropDown_->isOpen());
        EXPECT_FALSE(button().isOpen());
    }
    EXPECT_EQ(changes_, 0);
}

TEST_F(DropDowns, AreOperatedByPointerAndKeyboard)
{
    dropDown_->add({u"Zero"_s, 0});
    dropDown_->add({u"One"_s, 1, false});
    dropDown_->addSeparator();
    dropDown_->add({u"Zero"_s, 0}); // equal to the first
    dropDown_->add({u"Four"_s, 4});
    show();
    open();
    clickRow(1);
    clickRow(2);
    EXPECT_TRUE(dropDown_->isOpen()); // these cannot be chosen
    clickRow(3);
    EXPECT_FALSE(dropDown_->isOpen());
    EXPECT_EQ(dropDown_->selectedIndex(), 0);
    EXPECT_TRUE(dropDown_->hasChanges());
    EXPECT_EQ(changes_, 1);
    button().setFocus();
    for (const int opening : {Qt::Key_Space, Qt::Key_Down, Qt::Key_Up, Qt::Key_F4}) {
        QTest::keyClick(&button(), Qt::Key(opening));
        EXPECT_TRUE(dropDown_->isOpen()) << opening;
        key(Qt::Key_Escape);
    }
    QTest::keyClick(&button(), Qt::Key_A); // there is no field for it
    EXPECT_FALSE(dropDown_->isOpen());
    open();
    key(Qt::Key_Down);
    key(Qt::Key_Down);
    EXPECT_EQ(table().selectedRow(), 4);
    key(Qt::Key_Return);
    EXPECT_EQ(button().title(), u"Four"_s);
    EXPECT_EQ(changes_, 2);
    QWheelEvent wheel({5, 5}, button().mapToGlobal(QPointF(5, 5)), {}, {0, 120}, Qt::NoButton, Qt::NoModifier,
        Qt::NoScrollPhase, false);
    QApplication::sendEvent(&button(), &wheel);
    EXPECT_FALSE(wheel.isAccepted());
    EXPECT_EQ(dropDown_->selectedIndex(), 4);
    dropDown_->setEnabled(false);
    button().click();
    dropDown_->show(button());
    EXPECT_FALSE(dropDown_->isOpen());
}

TEST_F(DropDowns, SearchWhatIsTypedOnTheClosedButton)
{
    fill(200);
    dropDown_->setSelectedIndex(7);
    show();
    button().setFocus();
    QTest::keyClicks(&button(), u"1"_s);
    ASSERT_TRUE(dropDown_->isOpen());
    QTest::keyClicks(list().searchField(), u"99"_s);
    EXPECT_EQ(search(), u"199"_s);
    EXPECT_EQ(table().numberOfRows(), 200); // the search waits for the end of the typing
    const int height = dropDown_->panel()->height();
    ASSERT_TRUE(waitFor([&] { return table().numberOfRows() == 1; }));
    EXPECT_LT(dropDown_->panel()->height(), height);
    EXPECT_EQ(table().selectedRow(), -1);
    key(Qt::Key_Return);
    EXPECT_TRUE(dropDown_->isOpen()); // no row is selected
    list().searchField()->clear();
    ASSERT_TRUE(waitFor([&] { return table().numberOfRows() == 200; }));
    EXPECT_EQ(table().selectedRow(), 7);
    QTest::keyClicks(list().searchField(), u"no such item"_s);
    ASSERT_TRUE(waitFor([&] { return table().numberOfRows() == 0; }));
    key(Qt::Key_Down);
    key(Qt::Key_Return);
    list().searchField()->setText(u"199"_s);
    ASSERT_TRUE(waitFor([&] { return table().numberOfRows() == 1; }));
    key(Qt::Key_Down);
    key(Qt::Key_Enter);
    EXPECT_EQ(dropDown_->selectedIndex(), 199);

    // An input method composes in the field from the first letter on, though it only knows the button.
    QInputMethodEvent composing(u"\u304B"_s, {});
    QApplication::sendEvent(&button(), &composing);
    ASSERT_TRUE(dropDown_->isOpen());
    QInputMethodEvent committing;
    committing.setCommitString(u"\u9999"_s);
    QApplication::sendEvent(&button(), &committing);
    EXPECT_EQ(search(), u"\u9999"_s);
    EXPECT_EQ(button().inputMethodQuery(Qt::ImSurroundingText), u"\u9999"_s);
}

TEST_F(DropDowns, ChooseFromItemsThatAreReplacedMeanwhile)
{
    fill(3);
    show();
    struct Case {
        QList<int> replacement;
        std::optional<int> selected;
        int changes;
    };
    for (const auto& [replacement, selected, changes] :
        {Case{{0, 1, 2}, 1, 1}, Case{{5, 2, 1}, 2, 2}, Case{{}, 2, 2}}) {
        dropDown_->removeAllItems();
        fill(3);
        open();
        dropDown_->removeAllItems();
        for (const int value : replacement)
            dropDown_->add({u"Item %1"_s.arg(value), value});
        EXPECT_EQ(table().numberOfRows(), 3);
        clickRow(1);
        EXPECT_FALSE(dropDown_->isOpen());
        EXPECT_EQ(dropDown_->selectedIndex(), selected);
        EXPECT_EQ(changes_, changes);
    }
}

TEST_F(DropDowns, CloseWithWhatTheyAreIn)
{
    const std::pair<const char*, std::function<void()>> ends[] = {
        {"disabled", [&] { dropDown_->setEnabled(false); }},
        {"form disabled", [&] { window_.setEnabled(false); }},
        {"hidden", [&] { dropDown_->setHidden(true); }},
        {"window hidden", [&] { window_.hide(); }},
        {"element ended", [&] { form_->removeElement(*dropDown_), dropDown_.reset(); }},
        {"form ended", [&] { dropDown_.reset(), form_.reset(); }},
        {"view deleted", [&] { delete dropDown_->view(); }},
    };
    show();
    for (const auto& [name, end] : ends) {
        SCOPED_TRACE(name);
        form_ = std::make_shared<Form>(u"Form"_s, std::make_shared<FormViewFactory>(), 300, 0.6);
        dropDown_ = add<FormDropDown>();
        window_.setEnabled(true);
        window_.show();
        QCoreApplication::processEvents(); // shows the new view
        fill(20'000);
        open();
        list().searchField()->setText(u"9"_s);
        const QPointer<DropdownPanel> panel = dropDown_->panel();
        // The search runs, or has just ended.
        auto& spinner = *panel->findChild<quor::toolkit::SyncSpinner*>();
        EXPECT_TRUE(waitFor([&] { return spinner.isVisible() || table().numberOfRows() < 20'000; }));
        end();
        EXPECT_TRUE(waitFor([&] { return !panel || panel->isHidden(); }));
        EXPECT_TRUE(!dropDown_ || !dropDown_->isOpen());
    }
    // A handler may end the element.
    dropDown_ = add<FormDropDown>();
    fill(1);
    dropDown_->setValueChanged([this](FormElement& element) {
        form_->removeElement(element);
        dropDown_.reset();
    });
    QCoreApplication::processEvents();
    open();
    key(Qt::Key_Down);
    key(Qt::Key_Return);
    EXPECT_FALSE(dropDown_);
}

TEST_F(DropDowns, TellScreenReadersWhatIsChosen)
{
    fill(2);
    dropDown_->add({u"Off"_s, 3, false});
    dropDown_->setSelectedIndex(1);
    show();
    auto* const button = QAccessible::queryAccessibleInterface(&this->button());
    EXPECT_EQ(button->role(), QAccessible::ComboBox);
    EXPECT_EQ(button->text(QAccessible::Name), u"Item 1"_s);
    this->button().setAccessibleName(u"Project:"_s);
    EXPECT_EQ(button->text(QAccessible::Name), u"Project: Item 1"_s);
    EXPECT_TRUE(button->state().collapsed);
    button->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    ASSERT_TRUE(dropDown_->isOpen());
    EXPECT_TRUE(button->state().expanded);
    auto* const rows = QAccessible::queryAccessibleInterface(&table());
    EXPECT_EQ(rows->child(1)->text(QAccessible::Name), u"Item 1"_s);
    EXPECT_TRUE(rows->child(1)->state().checked);
    EXPECT_TRUE(rows->child(2)->state().disabled);
}

} // namespace
