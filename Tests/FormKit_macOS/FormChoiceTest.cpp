// SPDX-License-Identifier: MIT
#include "ElementFixture.h"
#include "FormKit_macOS/Controls/Segment.h"
#include "FormKit_macOS/Elements/FormButtonSelection.h"
#include "FormKit_macOS/Elements/FormCheckBox.h"
#include "FormKit_macOS/Elements/FormRadioButton.h"
#include "FormKit_macOS/Elements/FormSeparator.h"

using namespace quor::formkit;
using namespace Qt::StringLiterals;
using quor::test::FormElements;

namespace {

TEST_F(FormElements, SegmentsAreChosenByMouseAndKeys)
{
    const auto selection = add<FormButtonSelection>();
    selection->setSelectedTag(7);
    selection->setButtons({{5, u"A & B"_s}, {6, u"Second"_s}, {7, u"Third one"_s}, {6, u"Same tag"_s}});
    int changes = 0;
    selection->setValueChanged([&](FormElement&) { ++changes; });
    show(600);
    auto* const row = selection->view();
    auto& control = dynamic_cast<SegmentedControl&>(*row);
    const auto segments = row->findChildren<Segment*>();
    const auto states = [&] {
        QString text;
        for (const auto* segment : segments)
            text += segment->isChecked() ? u'1' : u'0';
        return text;
    };
    EXPECT_EQ(control.segmentCount(), 4);
    EXPECT_EQ(control.selectedSegment(), 2);
    EXPECT_EQ(states(), u"0010"_s);
    EXPECT_FALSE(selection->hasChanges());
    click(segments[1]);
    EXPECT_EQ(states(), u"0101"_s);
    EXPECT_EQ(control.segmentRect(control.selectedSegment()), segments[1]->geometry());
    EXPECT_TRUE(row->hasFocus() && selection->hasChanges());
    QTest::keyClick(row, Qt::Key_Left);
    EXPECT_EQ(selection->selectedTag(), 5);
    QTest::keyClick(row, Qt::Key_Left); // there is no further one
    window_.setLayoutDirection(Qt::RightToLeft);
    QTest::keyClick(row, Qt::Key_Left);
    EXPECT_EQ(selection->selectedTag(), 6);
    EXPECT_EQ(changes, 3);
    EXPECT_EQ(role(segments[1]), QAccessible::RadioButton);
    EXPECT_TRUE(QAccessible::queryAccessibleInterface(segments[1])->state().focused);
    selection->setAllowMultipleSelection(true);
    EXPECT_EQ(role(segments[1]), QAccessible::CheckBox);
    EXPECT_EQ(states(), u"0000"_s);
    QTest::keyClick(row, Qt::Key_End);
    EXPECT_EQ(changes, 3) << "only moved the focus";
    QTest::keyClick(row, Qt::Key_Space);
    EXPECT_EQ(selection->selectedTags(), (std::set{6}));
    click(segments[0]);
    EXPECT_EQ(selection->selectedTags(), (std::set{5, 6}));
    toggleByScreenReader(segments[0]);
    EXPECT_EQ(selection->selectedTags(), (std::set{6}));
    selection->setEnabled(false);
    click(segments[0]);
    EXPECT_EQ(changes, 6);
    selection->setEnabled(true);
    selection->setAllowMultipleSelection(false);
    row->setFocus();
    selection->setValueChanged([&](FormElement&) {
        selection->setButtons({{5, u"New"_s}, {6, u"titles"_s}, {7, u"!"_s}});
    });
    QTest::keyClick(row, Qt::Key_Home);
    QTest::keyClick(row, Qt::Key_Left); // mirrored
    QTest::keyClick(row, Qt::Key_Left);
    EXPECT_EQ(selection->selectedTag(), 7) << "new titles took the keys to another segment";
    selection->setButtons({});
    QTest::keyClick(row, Qt::Key_Right);
    EXPECT_EQ(control.selectedSegment(), -1);
}

TEST_F(FormElements, TheTextOfACheckBoxIsPartOfIt)
{
    const auto box = add<FormCheckBox>();
    box->setTitle(
        u"Send **all** reports that this program can make, as told in [the help](https://example.org/a)"_s);
    box->setAlternateTitle(u"Sends them"_s);
    int changes = 0;
    std::vector<QUrl> links;
    box->setValueChanged([&](FormElement&) { ++changes; });
    box->setLinkClicked([&](const QUrl& url) { links.push_back(url); });
    show();
    auto& row = static_cast<ToggleRow&>(*box->view());
    auto* const viewport = row.text().viewport();
    EXPECT_GT(row.height(), 2 * row.fontMetrics().height()) << "does not wrap";
    EXPECT_LT(row.box().geometry().center().y(), row.fontMetrics().height()) << "not at the first line";
    const auto* const accessible = QAccessible::queryAccessibleInterface(&row.box());
    EXPECT_EQ(accessible->text(QAccessible::Name),
        u"Send all reports that this program can make, as told in the help"_s);
    click(viewport, linkPlace(row.text()));
    EXPECT_EQ(links, std::vector{QUrl(u"https://example.org/a"_s)});
    EXPECT_FALSE(box->value());
    click(viewport, {5, 5});
    EXPECT_TRUE(box->value() && box->hasChanges() && row.box().isChecked() && row.box().hasFocus());
    EXPECT_EQ(row.text().shownText(), u"Sends them"_s);
    EXPECT_EQ(QAccessible::queryAccessibleInterface(&row)->childCount(), 1) << "read twice";
    QTest::mouseDClick(viewport, Qt::LeftButton, {}, {5, 5}); // press, release and a double click
    QTest::mouseRelease(viewport, Qt::LeftButton, {}, {5, 5});
    toggleByScreenReader(&row.box());
    EXPECT_EQ(changes, box->value() ? 3 : 4);
    EXPECT_EQ(row.box().isChecked(), box->value());
    EXPECT_EQ(row.children().indexOf(&row.box()), 0) << "Tab reaches the link first";
    QTest::mousePress(viewport, Qt::LeftButton, {}, {5, 5});
    QTest::mouseRelease(viewport, Qt::LeftButton, {}, {5, 500});
    const int before = changes;
    box->setValue(!box->value());
    box->setEnabled(false);
    click(viewport, {5, 5});
    EXPECT_EQ(changes, before);
    EXPECT_TRUE(box->focusableViews().empty());
    for (const int width : {row.text().x() + 1, 1, 0}) {
        row.resize(width, row.heightForWidth(width));
        EXPECT_GE(row.text().width(), 0) << width;
    }
}

TEST_F(FormElements, RadioButtonsThatFollowEachOtherExcludeEachOther)
{
    std::vector<std::shared_ptr<FormRadioButton>> radios;
    int changes = 0;
    for (int i = 0; i < 5; ++i) {
        if (i == 3)
            add<FormSeparator>();
        radios.push_back(add<FormRadioButton>());
        radios.back()->setTitle(u"&Choice <b>"_s);
        radios.back()->setValueChanged([&](FormElement&) { ++changes; });
    }
    show();
    const auto states = [&] {
        QString text;
        for (const auto& radio : radios)
            text += radio->isOn() ? u'1' : u'0';
        return text;
    };
    const auto box = [&](std::size_t i) { return &static_cast<ToggleRow&>(*radios[i]->view()).box(); };
    radios[4]->setOn(true);
    EXPECT_EQ(changes, 0);
    click(box(0));
    click(box(0)); // stays on
    EXPECT_EQ(states(), u"10001"_s);
    click(static_cast<ToggleRow&>(*radios[1]->view()).text().viewport(), {5, 5});
    EXPECT_EQ(states(), u"01001"_s);
    radios[2]->setEnabled(false);
    QTest::keyClick(box(1), Qt::Key_Down); // to the first, since the third one is disabled
    EXPECT_EQ(states(), u"10001"_s);
    EXPECT_TRUE(box(0)->hasFocus());
    EXPECT_EQ(changes, 4);
    EXPECT_EQ(role(box(1)), QAccessible::RadioButton);
    toggleByScreenReader(box(1));
    toggleByScreenReader(box(1)); // stays on
    radios[3]->setEnabled(false);
    QTest::keyClick(box(4), Qt::Key_Up); // no other one is left
    EXPECT_EQ(changes, 6);
    EXPECT_TRUE(radios[1]->isOn() && box(1)->isChecked());
    EXPECT_FALSE(radios[0]->hasChanges());
    EXPECT_EQ(box(0)->accessibleName(), u"&Choice <b>"_s);
}

} // namespace
