// SPDX-License-Identifier: MIT
#include "FormKit_macOS/Elements/FormButton.h"
#include "ElementFixture.h"
#include "Support/WaitFor.h"
#include "ToolKit_macOS/SyncSpinner.h"

#include <QElapsedTimer>

using namespace quor::formkit;
using namespace Qt::StringLiterals;
using quor::test::FormElements;
using quor::test::waitFor;

namespace {

TEST_F(FormElements, ButtonsShowTheirTitlesLiterallyAndFitIntoTheirRow)
{
    struct Case {
        QString title;
        bool parseMarkdown;
        QString name;
    };
    const auto button = add<FormButton>();
    show();
    for (const auto& [title, parseMarkdown, name] : std::initializer_list<Case>{
             {u"Save & close"_s, false, u"Save & close"_s},
             {u"one\ntwo"_s, false, u"one two"_s},
             {u"**not** bold"_s, false, u"**not** bold"_s},
             {u"**bold** & more"_s, true, u"bold & more"_s},
             {QString(100'000, u'x'), false, QString(100'000, u'x')},
         }) {
        button->setTitle(title);
        button->setParseMarkdown(parseMarkdown);
        for (const auto style : {FormButtonStyle::rounded, FormButtonStyle::textOnly}) {
            button->setStyle(style);
            QApplication::sendPostedEvents();
            window_.grab();
            EXPECT_LE(button->button()->width(), button->view()->width());
            EXPECT_LT(window_.minimumSizeHint().width(), 300);
        }
        button->setStyle(FormButtonStyle::rounded);
        EXPECT_GE(button->button()->sizeHint().width(), window_.fontMetrics().horizontalAdvance(name) + 18)
            << "the title touches the frame";
        EXPECT_EQ(QAccessible::queryAccessibleInterface(button->button())->text(QAccessible::Name), name);
        EXPECT_TRUE(button->button()->shortcut().isEmpty());
    }
}

TEST_F(FormElements, ButtonsAtOneSideAreMirrored)
{
    const auto button = add<FormButton>();
    button->setTitle(u"OK"_s);
    show();
    for (const auto direction : {Qt::LeftToRight, Qt::RightToLeft}) {
        for (const auto alignment : {FormTextAlignment::left, FormTextAlignment::right}) {
            window_.setLayoutDirection(direction);
            button->setAlignment(alignment);
            QApplication::sendPostedEvents();
            const bool isLeft = (alignment == FormTextAlignment::left) == (direction == Qt::LeftToRight);
            EXPECT_EQ(button->button()->x() == 0, isLeft);
        }
    }
}

TEST_F(FormElements, AButtonInProgressCannotBePressed)
{
    const auto button = add<FormButton>();
    button->setTitle(u"Save"_s);
    int clicks = 0;
    button->setButtonClickedHandler([&](FormElementButton&) { ++clicks; });
    show();
    const int width = button->button()->sizeHint().width();
    QElapsedTimer time;
    time.start();
    button->setShowProgress(true);
    button->setEnabled(true);
    click(button->button());
    auto* const spinner = button->button()->findChild<quor::toolkit::SyncSpinner*>();
    EXPECT_FALSE(spinner->isSpinning());
    EXPECT_TRUE(waitFor([&] { return spinner->isSpinning(); }));
    EXPECT_GE(time.elapsed(), 95);
    EXPECT_GE(button->button()->sizeHint().width(), width);
    EXPECT_TRUE(button->button()->rect().contains(spinner->geometry()));
    button->setEnabled(false);
    button->setShowProgress(false);
    EXPECT_FALSE(spinner->isSpinning() || spinner->isVisible());
    click(button->button());
    EXPECT_EQ(clicks, 0) << "the end of the progress enabled a disabled element";
    button->setEnabled(true);
    click(button->button());
    button->button()->setFocus();
    QTest::keyClick(button->button(), Qt::Key_Return);
    EXPECT_EQ(clicks, 2);
    holdReturn(button->button());
    EXPECT_EQ(clicks, 2);
    button->setHidden(true);
    EXPECT_TRUE(button->button()->isHidden());
}

} // namespace
