// SPDX-License-Identifier: MIT
#include "ElementFixture.h"
#include "FormKit_macOS/Controls/BackButton.h"
#include "FormKit_macOS/Controls/ElidedLabel.h"
#include "FormKit_macOS/Controls/LargerButton.h"
#include "FormKit_macOS/Elements/FormHintText.h"
#include "FormKit_macOS/Elements/FormSeparator.h"
#include "FormKit_macOS/Elements/FormStateView.h"
#include "FormKit_macOS/Elements/FormTitle.h"

#include <QFrame>
#include <QLineEdit>
#include <QScrollBar>
#include <QWheelEvent>

using namespace quor::formkit;
using namespace Qt::StringLiterals;
using quor::test::FormElements;

namespace {

TEST_F(FormElements, SeparatorsAreHighAsTheyAreSeen)
{
    const auto separator = add<FormSeparator>();
    show();
    for (const auto& [isTransparent, height] : {std::pair(true, 5), std::pair(false, 15)}) {
        separator->setTransparent(isTransparent);
        QApplication::sendPostedEvents();
        EXPECT_EQ(separator->view()->height(), height);
        EXPECT_EQ(separator->view()->findChild<QFrame*>()->isVisible(), !isTransparent);
    }
}

TEST_F(FormElements, TitlesFollowTheFontAndLeadBack)
{
    const auto title = add<FormTitle>(FormTitle::TitleType::title, true);
    const auto subtitle = add<FormTitle>(FormTitle::TitleType::subtitle, false);
    title->setText(u"A title\nthat is & far too long for the line that it has to stand in"_s);
    show();
    auto* const label = title->view()->findChild<ElidedLabel*>();
    EXPECT_EQ(title->view()->width(), subtitle->view()->width());
    EXPECT_EQ(label->text(), u"A title that is & far too long for the line that it has to stand in"_s);
    const QFont before = QApplication::font();
    for (const double size : {10.0, 20.0}) {
        QFont font = before;
        font.setPointSizeF(size);
        QApplication::setFont(font);
        QApplication::processEvents();
        EXPECT_DOUBLE_EQ(label->font().pointSizeF(), size * 1.2);
        EXPECT_DOUBLE_EQ(subtitle->view()->findChild<ElidedLabel*>()->font().pointSizeF(), size * 0.9);
    }
    QApplication::setFont(before);
    int backs = 0;
    title->setBackButtonHandler([&] { ++backs; });
    auto* const back = title->view()->findChild<BackButton*>();
    EXPECT_EQ(back->accessibleName(), u"Back"_s);
    click(back);
    back->setFocus();
    QTest::keyClick(back, Qt::Key_Return);
    holdReturn(back);
    EXPECT_EQ(backs, 2);
    EXPECT_EQ(subtitle->view()->findChild<BackButton*>(), nullptr);
}

TEST_F(FormElements, TextsAreExactlyAsHighAsTheyNeed)
{
    struct Case {
        QString text;
        bool parseMarkdown;
        QString shown;
    };
    const auto hint = add<FormHintText>();
    show();
    auto& view = static_cast<ResizeTextView&>(*hint->view());
    for (const auto& [text, parseMarkdown, shown] : std::initializer_list<Case>{
             {QString(), false, QString()},
             {u"One line"_s, false, u"One line"_s},
             {u"<b>tags</b> & [marks](https://example.org)"_s, false,
                 u"<b>tags</b> & [marks](https://example.org)"_s},
             {u"**bold** <i>tag</i> [link](https://example.org)"_s, true, u"bold <i>tag</i> link"_s},
             {u"two\nlines\n"_s, false, u"two\nlines\n"_s},
             {QString(1000, u'w'), false, QString(1000, u'w')},
             {u"\u05e9\u05dc\u05d5\u05dd \u202egnal\u202c and more \ufffc"_s, false,
                 u"\u05e9\u05dc\u05d5\u05dd \u202egnal\u202c and more \ufffc"_s},
             {u"word \n"_s.repeated(17'000), false, u"word \n"_s.repeated(17'000)},
         }) {
        hint->setValue(text);
        hint->setParseMarkdown(parseMarkdown);
        QApplication::sendPostedEvents();
        EXPECT_EQ(view.shownText(), shown);
        EXPECT_EQ(view.document()->toPlainText(), shown);
        for (const int width : {280, 120}) {
            const int height = view.heightForWidth(width);
            const int lines = static_cast<int>(std::max(shown.count(u'\n') + 1, qsizetype(1)));
            EXPECT_GE(height, lines * QFontMetrics(view.document()->defaultFont()).height() - lines);
            view.resize(width, height);
            EXPECT_EQ(std::ceil(view.document()->size().height()), height);
            EXPECT_LE(view.document()->size().width(), width) << "a long word is cut off";
        }
        EXPECT_LT(window_.minimumSizeHint().width(), 300);
    }
    for (const auto& text : {QString(1001, u'w'), QString(100'000, u'*')}) {
        hint->setValue(text);
        EXPECT_EQ(view.document()->defaultTextOption().wrapMode(), QTextOption::WrapAnywhere)
            << "looking for the ends of words would take the square of its length";
    }
    hint->setIsBig(true);
    EXPECT_EQ(view.document()->defaultFont().pointSizeF(), view.font().pointSizeF());
    ResizeTextView fresh; // measured before it has ever been laid out
    fresh.setContent(u"word "_s.repeated(30), false);
    const int height = fresh.heightForWidth(200);
    fresh.resize(200, height);
    QApplication::sendPostedEvents();
    fresh.grab(); // lays it out
    EXPECT_EQ(std::ceil(fresh.document()->size().height()), height);
    QWheelEvent wheel({5, 5}, {5, 5}, {}, {0, -120}, Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(view.viewport(), &wheel);
    EXPECT_FALSE(wheel.isAccepted());
}

TEST_F(FormElements, AHintAsksForARenderIfItsHeightChanges)
{
    const auto hint = add<FormHintText>();
    hint->setValue(u"first"_s);
    show();
    for (const auto& [text, renders] : {std::pair(u"second"_s, false), std::pair(u"two\nlines"_s, true),
             std::pair(u"lines\ntwo"_s, false), std::pair(u"one"_s, true)}) {
        form_->setNeedsRender(false);
        hint->setValue(text);
        EXPECT_EQ(form_->needsRender(), renders) << text.toStdString();
        QApplication::sendPostedEvents();
    }
}

TEST_F(FormElements, LinksAreReachedAndOpenedByKeyboard)
{
    auto* const before = new QLineEdit;
    layout_->addWidget(before);
    const auto plain = add<FormHintText>();
    plain->setValue(u"No link"_s);
    const auto hint = add<FormHintText>();
    hint->setParseMarkdown(true);
    hint->setValue(u"See [one](https://example.org/1) and [two](https://example.org/2)."_s);
    auto* const after = new QLineEdit;
    layout_->addWidget(after);
    QStringList opened;
    hint->setLinkClicked([&](const QUrl& url) { opened.append(url.path()); });
    show();
    before->setFocus();
    const auto press = [&](Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
        QTest::keyClick(QApplication::focusWidget(), key, modifiers);
    };
    press(Qt::Key_Tab);
    EXPECT_TRUE(hint->view()->hasFocus());
    press(Qt::Key_Return);
    const QImage first = hint->view()->grab().toImage();
    press(Qt::Key_Tab);
    EXPECT_NE(hint->view()->grab().toImage(), first) << "the focus is not seen";
    press(Qt::Key_Space);
    press(Qt::Key_Tab);
    EXPECT_TRUE(after->hasFocus());
    press(Qt::Key_Backtab, Qt::ShiftModifier);
    press(Qt::Key_Return);
    press(Qt::Key_Backtab, Qt::ShiftModifier);
    press(Qt::Key_Return);
    press(Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_TRUE(before->hasFocus());
    auto& view = static_cast<ResizeTextView&>(*hint->view());
    click(view.viewport(), linkPlace(view));
    EXPECT_EQ(opened, (QStringList{u"/1"_s, u"/2"_s, u"/2"_s, u"/1"_s, u"/1"_s}));
}

TEST_F(FormElements, LinksKeepTheFocusAndTheirPlaceWhenTheTextChanges)
{
    auto* const before = new QLineEdit;
    layout_->addWidget(before);
    const auto hint = add<FormHintText>();
    hint->setParseMarkdown(true);
    hint->setValue(u"[first](https://example.org/1) or [second](https://example.org/2)"_s);
    QStringList opened;
    hint->setLinkClicked([&](const QUrl& url) {
        opened.append(url.path());
        hint->setValue(u"[more](https://example.org/3)\nlines and\n[last](https://example.org/4)"_s);
    });
    show();
    auto& view = static_cast<ResizeTextView&>(*hint->view());
    view.setFixedHeight(10);
    view.setFocus(Qt::BacktabFocusReason);
    hint->setTextColor(Qt::red);
    QTest::keyClick(&view, Qt::Key_Return);
    holdReturn(&view);
    QTest::keyClick(&view, Qt::Key_Return);
    EXPECT_EQ(opened, (QStringList{u"/2"_s, u"/4"_s}));
    EXPECT_EQ(view.verticalScrollBar()->value(), 0) << "stays scrolled when it has its height";
    QTest::keyClick(&view, Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_EQ(view.textCursor().selectedText(), u"more"_s);
    QTest::keyClick(&view, Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_TRUE(before->hasFocus()) << "caught at the beginning of the text";
}

TEST_F(FormElements, AStateWrapsItsTextsAndRunsItsAction)
{
    const auto state = add<FormStateView>();
    int actions = 0;
    state->setAction([&] { ++actions; });
    state->setTitle(u"A title that takes more than one line in this window, which is narrow"_s);
    state->setMessage(u"A message"_s);
    state->setButtonTitle(u"Close"_s);
    show();
    auto* const button = state->view()->findChild<LargerButton*>();
    const auto texts = state->view()->findChildren<ResizeTextView*>();
    EXPECT_EQ(texts[0]->y(), 30);
    EXPECT_EQ(texts[0]->height(), texts[0]->heightForWidth(texts[0]->width()));
    EXPECT_EQ(button->y() - texts[1]->geometry().bottom() - 1, 20);
    EXPECT_EQ(state->view()->height() - button->geometry().bottom() - 1, 20);
    EXPECT_NEAR(button->geometry().center().x(), state->view()->rect().center().x(), 1);
    click(button);
    EXPECT_EQ(actions, 1);
}

} // namespace
