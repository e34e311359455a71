// SPDX-License-Identifier: MIT
#include "FormKit_macOS/Rendering/FormViewRenderer.h"

#include "FormKit/FormDetailElement.h"
#include "FormKit_macOS/Controls/LargerButton.h"
#include "FormKit_macOS/Elements/FormButton.h"
#include "FormKit_macOS/Elements/FormSeparator.h"
#include "FormKit_macOS/Elements/FormTitle.h"
#include "FormKit_macOS/FormMacOSResource.h"
#include "Platform/Concurrency/MainQueue.h"
#include "Platform/Lifetime/WhileAlive.h"
#include "ToolKit_macOS/FlippedView.h"

#include <QApplication>
#include <QEvent>
#include <QScrollArea>
#include <QScrollBar>

#include <algorithm>
#include <optional>
#include <unordered_set>

namespace quor::formkit {

namespace {

std::unique_ptr<QScrollArea> makeScrollView()
{
    auto area = std::make_unique<QScrollArea>();
    area->setFrameShape(QFrame::NoFrame);
    area->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    area->setWidgetResizable(true);
    area->setFocusPolicy(Qt::NoFocus);
    auto* const rows = new toolkit::FlippedView;
    area->setWidget(rows);
    // The background of the form shall be seen.
    rows->setAutoFillBackground(false);
    area->viewport()->setAutoFillBackground(false);
    return area;
}

std::optional<QString> headingText(const Form& form, bool showBackNavigation)
{
    if (form.title() || !showBackNavigation)
        return form.title();
    return FormMacOSResource::localizedString(QStringLiteral("FormBackTitle"));
}

/// Returns an element of `elements` of the class `T` that `fits`, else a new one from `make`.
template <class T, class Fits, class Make>
std::shared_ptr<T> reused(const Form::Elements& elements, Fits fits, Make make)
{
    for (const auto& element : elements) {
        if (auto present = std::dynamic_pointer_cast<T>(element);
            present && present->view() && fits(*present))
            return present;
    }
    return make();
}

/// The first view in `view`, or itself, that can take the focus.
QWidget* firstControl(QWidget& view)
{
    if (view.focusPolicy() != Qt::NoFocus)
        return &view;
    for (QObject* const child : view.children()) {
        if (auto* const widget = qobject_cast<QWidget*>(child); widget && !widget->isWindow()) {
            if (QWidget* const control = firstControl(*widget))
                return control;
        }
    }
    return nullptr;
}

} // namespace

FormViewRenderer::FormViewRenderer(RenderMode mode, QWidget& view, bool showBackNavigation)
    : mode_(mode)
    , view_(&view)
    , showBackNavigation_(showBackNavigation)
    , scrollView_(makeScrollView())
{
    switch (mode) {
    case RenderMode::normal:
        rowLayout_ = new FormRowLayout(view);
        break;
    case RenderMode::stickyHeaders:
        headingLayout_ = new FormHeadingLayout(view);
        rowLayout_ = new FormRowLayout(*scrollView_->widget());
        break;
    }
}

FormViewRenderer::~FormViewRenderer()
{
    for (QLayout* const layout : {static_cast<QLayout*>(rowLayout_), static_cast<QLayout*>(headingLayout_)}) {
        // A layout whose rows are being replaced still needs itself.
        if (layout && isRendering_)
            layout->deleteLater();
        else
            delete layout;
    }
    restoreButtons(headingButtons_);
}

void FormViewRenderer::render(Form& form)
{
    if (!form.needsRender() || !view_ || !rowLayout_)
        return;
    if (isRendering_) {
        refusedForm_ = platform::TrackedPointer(&form);
        return;
    }
    const QPointer<FormKeyboardLoop> life(&keyboardLoop_);
    isRendering_ = true;
    form.setNeedsRender(false);
    const bool toTop = !form.noticeElements().empty();
    auto elements = collect(form, mode_);
    const Form::Elements lastTitles = titleElements_; // their end may run handlers, too
    if (!form.elements().empty())
        makeTitleElements(form);
    // Views that lose the focus or are disabled may run handlers of the application, which may delete views,
    // and end the renderer.
    const auto nextControls = takeFocusFromLeavingView(form, elements);
    if (life)
        disable(form, Form::Elements(titleElements_)); // a copy, since handlers may render again
    if (!life)
        return;
    if (!view_ || !rowLayout_) {
        isRendering_ = false;
        return;
    }
    const auto lastElements = std::exchange(renderedElements_, std::move(elements));
    std::vector<FormKeyboardLoop::Row> loop;
    const bool isEmpty = form.elements().empty();
    if (isEmpty) {
        clear();
    } else {
        if (headingLayout_)
            placeHeading(form, loop);
        if (life && rowLayout_)
            placeRows(form, loop);
    }
    if (!life)
        return;
    if (!isEmpty)
        scroll(toTop);
    if (view_)
        keyboardLoop_.build(*view_, loop);
    isRendering_ = false;
    if (Form* const refused = std::exchange(refusedForm_, {}).get())
        platform::MainQueue::async(
            platform::whileAlive(*refused, [refused] { refused->setNeedsRender(true); }));
    focusFirstOf(nextControls);
}

Form::Elements FormViewRenderer::collect(const Form& form, RenderMode mode)
{
    Form::Elements walk = form.noticeElements();
    walk.insert(walk.end(), form.elements().begin(), form.elements().end());
    Form::Elements collected;
    bool isLastSeparator = false;
    for (const auto& element : walk) {
        if (mode == RenderMode::stickyHeaders && element == form.defaultButton())
            continue;
        const bool isSeparator = dynamic_cast<const FormElementSeparator*>(element.get()) != nullptr;
        if (element->isHidden() || (isSeparator && isLastSeparator))
            continue;
        isLastSeparator = isSeparator;
        collected.push_back(element);
    }
    return collected;
}

void FormViewRenderer::disable(const Form& form, const Form::Elements& titleElements)
{
    const bool isEnabled = form.enabled();
    Form::Elements elements;
    if (!isEnabled) {
        elements = form.noticeElements();
        elements.insert(elements.end(), form.elements().begin(), form.elements().end());
    }
    for (const auto& element : elements) {
        element->setEnabled(false);
        if (const auto detail = element->detailElement())
            detail->setEnabled(false);
    }
    for (const auto& element : titleElements)
        element->setEnabled(isEnabled);
}

FormViewRenderer::Views FormViewRenderer::takeFocusFromLeavingView(
    const Form& form, const Form::Elements& elements) const
{
    QWidget* const focused = QApplication::focusWidget();
    if (!focused || (form.enabled() && staysInPlace(*focused, form, elements)))
        return {};
    Views following;
    for (QWidget* next = focused->nextInFocusChain(); next != focused; next = next->nextInFocusChain()) {
        if (view_->isAncestorOf(next) && (next->focusPolicy() & Qt::TabFocus) && !next->focusProxy())
            following.emplace_back(next);
    }
    // Qt would give the focus to one view after the other in the midst of the render.
    focused->clearFocus();
    return following;
}

bool FormViewRenderer::staysInPlace(
    const QWidget& focused, const Form& form, const Form::Elements& elements) const
{
    const auto contains
        = [&](const QWidget* view) { return view && (view == &focused || view->isAncestorOf(&focused)); };
    const QWidget* const container = rowLayout_->parentWidget();
    const bool isInView = view_->isAncestorOf(&focused);
    for (const auto& element : titleElements_) {
        if (contains(element->view()))
            return isInView && !form.elements().empty();
    }
    for (const auto& button : headingButtons_) {
        if (contains(button->button()) && isInView)
            return form.defaultButton() && !titleElements_.empty() && !form.elements().empty()
                && (button == form.defaultButton() || button == form.cancelButton());
    }
    for (const auto& element : elements) {
        const auto detail = element->detailElement();
        for (const QWidget* const view : {element->view(), detail ? detail->view() : nullptr}) {
            if (contains(view))
                return view->parentWidget() == container && !form.elements().empty();
        }
    }
    return !isInView;
}

void FormViewRenderer::focusFirstOf(const Views& controls) const
{
    if (QApplication::focusWidget() || !view_)
        return;
    const auto found = std::find_if(controls.begin(), controls.end(), [this](const auto& control) {
        return control && view_->isAncestorOf(control) && control->isVisible() && control->isEnabled();
    });
    if (found != controls.end())
        (*found)->setFocus(Qt::TabFocusReason);
}

void FormViewRenderer::clear()
{
    const auto buttons = std::exchange(headingButtons_, {});
    const Labels labels = std::exchange(labels_, {});
    discard(labels);
    const auto heading = headingLayout_;
    rowLayout_->setRows({}, Form::Layout::leftHeaders, 1);
    if (heading)
        heading->setParts({});
    restoreButtons(buttons);
}

void FormViewRenderer::makeTitleElements(const Form& form)
{
    // The back button keeps the focus, and a form that renders often makes nothing new.
    const Form::Elements last = std::exchange(titleElements_, {});
    const auto addTitle = [&](FormTitle::TitleType type, const QString& text, bool showBackButton) {
        const auto title = reused<FormTitle>(
            last,
            [&](const FormTitle& present) {
                return present.type() == type && present.showBackButton() == showBackButton;
            },
            [&] { return makeElement<FormTitle>(type, showBackButton); });
        title->setText(text);
        title->setBackButtonHandler(showBackButton ? backButtonHandler_ : nullptr);
        titleElements_.push_back(title);
    };
    const auto addSeparator = [&](bool isTransparent) {
        const auto separator = reused<FormSeparator>(
            last, [](const FormSeparator&) { return true; }, [] { return makeElement<FormSeparator>(); });
        separator->setTransparent(isTransparent);
        titleElements_.push_back(separator);
    };
    if (const auto text = headingText(form, showBackNavigation_)) {
        addTitle(FormTitle::TitleType::title, *text, showBackNavigation_);
        if (form.subtitle())
            addTitle(FormTitle::TitleType::subtitle, *form.subtitle(), false);
        addSeparator(false);
    } else if (mode_ == RenderMode::normal) {
        addSeparator(true);
    }
}

void FormViewRenderer::placeHeading(const Form& form, std::vector<FormKeyboardLoop::Row>& loop)
{
    FormHeadingLayout::Parts parts;
    parts.scrollArea = scrollView_.get();
    FormKeyboardLoop::Row row;
    for (const auto& element : titleElements_) {
        QWidget* const view = element->view();
        row.views.push_back(view);
        if (dynamic_cast<const FormSeparator*>(element.get()))
            parts.separator = view;
        else
            (parts.title ? parts.subtitle : parts.title) = view;
    }
    const auto lastButtons = std::exchange(headingButtons_, {});
    const auto defaultButton = std::dynamic_pointer_cast<FormButton>(form.defaultButton());
    const auto cancelButton = std::dynamic_pointer_cast<FormButton>(form.cancelButton());
    if (parts.title && defaultButton && cancelButton) {
        headingButtons_ = {cancelButton, defaultButton};
        parts.defaultButton = defaultButton->button();
        if (cancelButton != defaultButton)
            parts.cancelButton = cancelButton->button();
        row.views.insert(row.views.end(), {parts.cancelButton, parts.defaultButton});
    }
    const auto buttons = headingButtons_;
    headingLayout_->setParts(parts);
    for (const auto& button : buttons) {
        if (button->button())
            button->button()->setHidden(button->isHidden());
    }
    restoreButtons(lastButtons);
    loop.push_back(std::move(row));
}

void FormViewRenderer::restoreButtons(const std::vector<std::shared_ptr<FormButton>>& buttons)
{
    // A button that is on the screen elsewhere by now stays there.
    for (const auto& button : buttons) {
        if (button->button() && !button->button()->parentWidget())
            button->restoreButton();
    }
}

void FormViewRenderer::placeRows(const Form& form, std::vector<FormKeyboardLoop::Row>& loop)
{
    Form::Elements elements;
    if (mode_ == RenderMode::normal)
        elements = titleElements_;
    elements.insert(elements.end(), renderedElements_.begin(), renderedElements_.end());
    QWidget* const container = rowLayout_->parentWidget();
    // A view can be in one place only, also if its element was added twice.
    std::unordered_set<const QWidget*> placed;
    const auto isPlaceable = [&](const QWidget* view) {
        return view && (view->parentWidget() == container || !view->isAncestorOf(container))
            && placed.insert(view).second;
    };
    Labels lastLabels = std::exchange(labels_, {});
    const auto labelOf = [&](const std::shared_ptr<FormElement>& element, const QString& text,
                             QWidget* input) {
        auto& label = labels_[element.get()];
        if (const auto found = lastLabels.find(element.get()); found != lastLabels.end() && found->second)
            label = std::move(found->second);
        else
            label = platform::makeWidget<FormRowLabel>(container);
        const bool isBeside = form.layout() == Form::Layout::leftHeaders;
        label->setAlignment((isBeside ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter);
        label->setLine(text);
        label->setRow(input, element);
        return label.get();
    };
    std::vector<FormRowLayout::Row> rows;
    rows.reserve(elements.size());
    std::optional<FormRowKind> previous;
    for (const auto& element : elements) {
        QWidget* const view = element->view();
        if (!isPlaceable(view))
            continue;
        const FormRowKind kind = formRowKind(*element);
        const QString label = element->label();
        FormRowLayout::Row row{formRowStyle(form, kind, !label.isEmpty(), previous), view};
        const auto focusableViews = element->focusableViews();
        FormKeyboardLoop::Row stops{{focusableViews.begin(), focusableViews.end()}, {view}};
        if (row.style.showsLabel && !label.isEmpty())
            row.label = labelOf(
                element, label, focusableViews.empty() ? firstControl(*view) : focusableViews.front());
        const auto detail = kind == FormRowKind::separator ? nullptr : element->detailElement();
        if (QWidget* const detailView = detail ? detail->view() : nullptr; isPlaceable(detailView)) {
            row.detail = detailView;
            stops.views.push_back(detailView);
        }
        rows.push_back(row);
        loop.push_back(std::move(stops));
        previous = kind;
    }
    discard(lastLabels);
    rowLayout_->setRows(rows, form.layout(), form.inputSizeRatio());
}

void FormViewRenderer::discard(const Labels& labels)
{
    for (const auto& [element, label] : labels) {
        if (label)
            label->setRow(nullptr, nullptr); // which takes back its name
    }
}

void FormViewRenderer::scroll(bool toTop)
{
    if (toTop && scrollView_)
        scrollView_->verticalScrollBar()->setValue(0);
    if (!view_ || !view_->isVisible())
        return;
    if (headingLayout_)
        headingLayout_->activate();
    if (rowLayout_)
        rowLayout_->activate();
    if (mode_ != RenderMode::stickyHeaders || !scrollView_)
        return;
    // The area adapts its range to the new height now, not when the event comes.
    QEvent layoutRequest(QEvent::LayoutRequest);
    QCoreApplication::sendEvent(scrollView_.get(), &layoutRequest);
}

int FormViewRenderer::heightForWidth(int width) const
{
    const QLayout* const layout = view_ ? view_->layout() : nullptr;
    return layout ? layout->heightForWidth(width) : 0;
}

} // namespace quor::formkit
