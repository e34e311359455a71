// SPDX-License-Identifier: MIT
#include "FormKit_macOS/Controls/TextContainerView.h"

#include "FormKit_macOS/Controls/PlainTextView.h"
#include "FormKit_macOS/Controls/ResizeTextView.h"
#include "FormKit_macOS/Controls/ScaledFont.h"

#include <QEvent>
#include <QPainter>
#include <QStyle>
#include <QStyleOptionFrame>
#include <QVBoxLayout>

namespace quor::formkit {

namespace {

constexpr int hintSpacing = 4;

/// The frame and the background of a field of one line, around the view in its layout.
class TextBackground final : public QWidget {
public:
    explicit TextBackground(QWidget* parent)
        : QWidget(parent)
        , layout_(new QVBoxLayout(this))
    {
        placeContent();
    }

    void setContent(QWidget* content)
    {
        layout_->addWidget(content);
        setFocusProxy(content);
    }

protected:
    void changeEvent(QEvent* event) override
    {
        QWidget::changeEvent(event);
        if (event->type() == QEvent::StyleChange)
            placeContent();
    }
    void paintEvent(QPaintEvent*) override
    {
        QStyleOptionFrame option;
        option.initFrom(this); // the focus is that of the proxy
        option.lineWidth = style()->pixelMetric(QStyle::PM_DefaultFrameWidth, nullptr, this);
        option.state |= QStyle::State_Sunken;
        QPainter painter(this);
        style()->drawPrimitive(QStyle::PE_PanelLineEdit, &option, &painter, this);
    }

private:
    void placeContent()
    {
        const int frame = style()->pixelMetric(QStyle::PM_DefaultFrameWidth, nullptr, this);
        layout_->setContentsMargins(frame, frame, frame, frame);
    }

    QVBoxLayout* layout_;
};

} // namespace

TextContainerView::TextContainerView(QWidget* parent)
    : QWidget(parent)
    , hintTextField_(new ResizeTextView(this))
{
    auto* const background = new TextBackground(this);
    textBackground_ = background;
    textView_ = new PlainTextView(background);
    background->setContent(textView_);
    textView_->installEventFilter(this);
    hintTextField_->setFontScale(smallFontFactor);
    hintTextField_->setColor(ResizeTextView::Color::secondaryText);
    hintTextField_->setSelectable(false);
    hintTextField_->hide();
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins({});
    layout->setSpacing(hintSpacing);
    layout->addWidget(textBackground_);
    layout->addWidget(hintTextField_);
    connect(textView_, &PlainTextView::edited, this, [this] { didChangeHandler_(*this); });
    connect(textView_, &PlainTextView::endedEditing, this, [this] { didEndEditingHandler_(*this); });
}

void TextContainerView::setHintText(const QString& hintText)
{
    hintText_ = hintText;
    hintTextField_->setContent(hintText, false);
    hintTextField_->setHidden(hintText.isEmpty());
    textView_->setAccessibleDescription(hintText);
}

bool TextContainerView::eventFilter(QObject*, QEvent* event)
{
    if (event->type() == QEvent::FocusIn || event->type() == QEvent::FocusOut)
        textBackground_->update();
    return false;
}

} // namespace quor::formkit
