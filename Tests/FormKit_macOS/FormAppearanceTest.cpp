// SPDX-License-Identifier: MIT
#include "FormKit/Elements/FormElementButton.h"
#include "FormKit/Elements/FormElementButtonSelection.h"
#include "FormKit/Elements/FormElementCheckBox.h"
#include "FormKit/Elements/FormElementDatePicker.h"
#include "FormKit/Elements/FormElementDistanceInput.h"
#include "FormKit/Elements/FormElementDropDown.h"
#include "FormKit/Elements/FormElementDurationInput.h"
#include "FormKit/Elements/FormElementHintText.h"
#include "FormKit/Elements/FormElementMoneyInput.h"
#include "FormKit/Elements/FormElementMultilineTextInput.h"
#include "FormKit/Elements/FormElementSeparator.h"
#include "FormKit/Elements/FormElementTextInput.h"
#include "FormKit/FormItem.h"
#include "FormKit_macOS/Controls/ElidedLabel.h"
#include "FormKit_macOS/Controls/ResizeTextView.h"
#include "FormKit_macOS/Controls/Segment.h"
#include "FormKit_macOS/Elements/FormFromToDatePicker.h"
#include "FormKit_macOS/Elements/FormRadioButton.h"
#include "RendererFixture.h"

#include <QComboBox>
#include <QLineEdit>
#include <QScrollArea>
#include <QScrollBar>
#include <QSlider>
#include <QSpinBox>
#include <QToolButton>

using namespace Qt::StringLiterals;
using namespace quor::formkit;
using namespace quor::test;
namespace platform = quor::platform;
using Mode = FormViewRenderer::RenderMode;

namespace {

using Elements = std::map<QString, std::shared_ptr<FormElement>>;

/// One element of each kind that stands beside a label, the label too with texts that do not go below their
/// line.
Elements elementsOf(const FormViewFactoryProtocoll& factory)
{
    Elements elements;
    const auto add = [&](const QString& name, const auto& element) {
        element->setLabel(u"H"_s);
        elements.emplace(name, element);
        return element;
    };
    add(u"button"_s, factory.button())->setTitle(u"HH"_s);
    const auto flat = add(u"text button"_s, factory.button());
    flat->setStyle(FormButtonStyle::textOnly);
    flat->setTitle(u"HH"_s);
    for (const auto style : {FormButtonStyle::rounded, FormButtonStyle::textOnly}) {
        const auto marked = add(
            style == FormButtonStyle::rounded ? u"marked button"_s : u"marked text"_s, factory.button());
        marked->setStyle(style);
        marked->setParseMarkdown(true);
        marked->setTitle(u"**HH**"_s);
    }
    add(u"selection"_s, factory.buttonSelection())->setButtons({{1, u"H"_s}, {2, u"HH"_s}});
    add(u"check box"_s, factory.checkBox())->setTitle(u"HH"_s);
    add(u"radio button"_s, makeElement<FormRadioButton>())->setTitle(u"HH"_s);
    const auto dropDown = add(u"drop-down"_s, factory.dropDown());
    dropDown->add(FormItem(u"HH"_s, 1));
    dropDown->add(FormItem(u"I"_s, 2));
    dropDown->setSelectedIndex(0);
    const auto hint = add(u"hint"_s, factory.hintText());
    hint->setParseMarkdown(true);
    hint->setValue(u"HH [HH](https://example.org)"_s);
    add(u"text"_s, factory.textInput())->setValue(u"HH"_s);
    const auto notes = add(u"notes"_s, factory.multilineTextInput());
    notes->setValue(u"HH"_s);
    notes->setHintText({});
    notes->setEnableSpellChecking(false); // its waves come later
    const platform::Date moment(std::chrono::seconds(4476683460)); // 11.11.2111, 11:11 UTC
    const auto date = add(u"date"_s, factory.datePicker());
    date->setMode(DatePickerMode::dateTime);
    date->setValue(moment);
    const auto optional = add(u"optional date"_s, factory.datePicker());
    optional->setShowsClearButton(true);
    optional->setValue(moment);
    const auto hours = add(u"hours"_s, makeElement<FormFromToDatePicker>(factory));
    hours->setMode(DatePickerMode::date);
    hours->setToText(u"H"_s);
    hours->setFromValue(moment);
    hours->setToValue(moment);
    const auto duration = add(u"duration"_s, factory.durationInput());
    duration->setHideLock(false);
    duration->setValue(11 * 3660);
    add(u"distance"_s, factory.distanceInput())->setValue(1000);
    const auto money = add(u"money"_s, factory.moneyInput());
    money->setCurrencyCode(u"JPY"_s);
    money->setValue(71);
    return elements;
}

class FormAppearance : public FormRenderer {
protected:
    FormAppearance() { QApplication::setCursorFlashTime(0); }
    ~FormAppearance() override
    {
        QApplication::setPalette({});
        QLocale::setDefault(QLocale(u"en_US"_s));
        QApplication::setCursorFlashTime(flashTime_);
    }

private:
    int flashTime_ = QApplication::cursorFlashTime();
};

int lowestRed(const QImage& image)
{
    for (int y = image.height() - 1; y >= 0; --y) {
        for (int x = 0; x < image.width(); ++x) {
            const QColor color = image.pixelColor(x, y);
            if (color.red() - std::max(color.green(), color.blue()) > 80)
                return y;
        }
    }
    return -1;
}

TEST_F(FormAppearance, LabelsStandOnTheLineOfTheTextsBesideThem)
{
    QPalette red = QApplication::palette();
    for (const auto role : {QPalette::WindowText, QPalette::ButtonText, QPalette::Text, QPalette::Link})
        red.setColor(role, Qt::red);
    QApplication::setPalette(red);
    QLocale::setDefault(QLocale(u"de_DE"_s));
    for (const int size : {9, 10, 11, 13, 16}) {
        QFont font = window.font();
        font.setPointSize(size);
        window.setFont(font);
        for (const auto& [name, element] : elementsOf(FormViewFactory())) {
            SCOPED_TRACE(name.toStdString() + " " + std::to_string(size));
            renderer.reset();
            use(Mode::normal);
            TestForm form;
            form.addElement(element);
            render(form);
            for (auto* const button : element->view()->findChildren<QToolButton*>())
                button->setPalette(Qt::black); // its symbol does not stand on the line
            const QImage picture = window.grab().toImage();
            const QRect label = labels().at(0)->geometry();
            const QRect view = rectOf(*element).adjusted(0, 2, 0, -2); // without its frame
            EXPECT_EQ(lowestRed(picture.copy(label)) + label.y(), lowestRed(picture.copy(view)) + view.y());
        }
    }
}

/// The number of pixels that are drawn.
int inkOf(QWidget& view, QSize size)
{
    view.resize(size);
    const QImage picture = view.grab().toImage();
    const QRgb background = picture.pixel(picture.width() - 1, 0);
    int ink = 0;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x)
            ink += picture.pixel(x, y) != background ? 1 : 0;
    }
    return ink;
}

TEST_F(FormAppearance, LettersWithMarksAboveAndBelowAreNotCutOff)
{
    const QString letters = u"ÄÅçgŢ"_s;
    ResizeTextView text(&window);
    ElidedLabel label(&window);
    label.setLine(letters);
    for (int size = 7; size <= 20; ++size) {
        SCOPED_TRACE(size);
        QFont font = window.font();
        font.setPointSize(size);
        window.setFont(font);
        const auto inkOfText = [&](const QString& content) {
            text.setContent(content, false);
            return inkOf(text, {300, text.heightForWidth(300)});
        };
        EXPECT_EQ(inkOfText(letters), inkOfText(u'\n' + letters + u'\n'));
        EXPECT_EQ(inkOf(label, {300, label.sizeHint().height()}),
            inkOf(label, {300, label.sizeHint().height() + 10}));
    }
}

TEST_F(FormAppearance, AFormThatIsShownFollowsThePalette)
{
    QPalette dark(QColor(40, 40, 40), QColor(30, 30, 30));
    dark.setColor(QPalette::Link, QColor(100, 200, 250));
    QImage pictures[2];
    for (const bool isShownBefore : {false, true}) {
        QApplication::setPalette(isShownBefore ? QPalette() : dark);
        renderer.reset();
        use(Mode::normal, true);
        TestForm form(Form::Layout::leftHeaders, 0.6, u"Title"_s);
        form.addNotice(u"A [link](https://example.org)"_s, QColor());
        form.addStateNotice(u"Title"_s, u"Message"_s);
        for (const auto& [name, element] : elementsOf(*form.viewFactory()))
            form.addElement(element);
        form.add(form.viewFactory()->separator());
        render(form);
        window.resize(400, renderer->heightForWidth(400));
        QApplication::setPalette(dark);
        QCoreApplication::processEvents();
        pictures[isShownBefore] = window.grab().toImage();
    }
    EXPECT_EQ(pictures[0], pictures[1]);
}

TEST_F(FormAppearance, TheChosenSegmentIsSeenAlsoInAFormThatIsOff)
{
    for (const auto& background : {QColor(240, 240, 240), QColor(40, 40, 40)}) {
        QApplication::setPalette(QPalette(background));
        TestForm form;
        const auto selection = form.viewFactory()->buttonSelection();
        selection->setButtons({{1, QString()}, {2, QString()}, {3, QString()}});
        selection->setSelectedTag(2);
        selection->setEnabled(false);
        form.addElement(selection);
        render(form);
        const auto segments = selection->view()->findChildren<Segment*>();
        const auto lightness = [](QWidget* segment) {
            return segment->grab().toImage().pixelColor(segment->rect().center()).lightness();
        };
        EXPECT_GE(std::abs(lightness(segments[1]) - lightness(segments[2])), 15);
    }
}

TEST_F(FormAppearance, TheWheelOverAControlWithoutTheFocusScrollsTheForm)
{
    use(Mode::stickyHeaders);
    TestForm form;
    const auto focused = form.add(makeViewElement<QLineEdit>(QString()));
    auto elements = elementsOf(*form.viewFactory());
    const auto box = makeViewElement<QComboBox>(QString());
    static_cast<QComboBox*>(box->view())->addItems({u"a"_s, u"b"_s});
    elements.emplace(u"combo box"_s, box);
    elements.emplace(u"spin box"_s, makeViewElement<QSpinBox>(QString()));
    elements.emplace(u"slider"_s, makeViewElement<QSlider>(QString(), Qt::Horizontal));
    for (const auto& [name, element] : elements)
        form.addElement(element);
    form.add(row({}, 1000));
    render(form);
    auto* const bar = renderer->scrollView()->verticalScrollBar();
    const auto wheel = [](QWidget& view, int delta) {
        QPoint middle = view.rect().center();
        QWidget* target = &view;
        if (QWidget* const inner = view.childAt(middle)) {
            middle = inner->mapFrom(&view, middle);
            target = inner;
        }
        QWheelEvent event(middle, target->mapToGlobal(middle), {}, {0, delta}, Qt::NoButton, Qt::NoModifier,
            Qt::NoScrollPhase, false);
        QSpontaneKeyEvent::setSpontaneous(&event); // else it does not reach the parents
        qApp->notify(target, &event);
    };
    bar->setValue(100);
    for (const auto& [name, element] : elements) {
        SCOPED_TRACE(name.toStdString());
        focused->view()->setFocus();
        for (const int delta : {-120, 120}) {
            bar->setValue(100);
            const QImage before = element->view()->grab().toImage();
            wheel(*element->view(), delta);
            EXPECT_EQ(bar->value() > 100, delta < 0);
            EXPECT_NE(bar->value(), 100);
            EXPECT_EQ(element->view()->grab().toImage(), before);
            EXPECT_TRUE(focused->view()->hasFocus());
        }
    }
    box->view()->setFocus();
    wheel(*box->view(), -120);
    EXPECT_EQ(static_cast<QComboBox*>(box->view())->currentIndex(), 1);
}

} // namespace
