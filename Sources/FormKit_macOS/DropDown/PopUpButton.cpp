// SPDX-License-Identifier: MIT
#include "FormKit_macOS/DropDown/PopUpButton.h"

#include "FormKit_macOS/Controls/ElidedText.h"

#include <QAccessibleWidget>
#include <QHelpEvent>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QStyleOptionComboBox>
#include <QStylePainter>

#include <algorithm>

namespace quor::formkit {

namespace {

constexpr int usualLetters = 16;
constexpr int leastLetters = 3;

class PopUpButtonAccessible final : public QAccessibleWidget {
public:
    explicit PopUpButtonAccessible(PopUpButton& button)
        : QAccessibleWidget(&button, QAccessible::ComboBox)
    {
    }
    [[nodiscard]] QString text(QAccessible::Text what) const override
    {
        if (what == QAccessible::Value)
            return button().title();
        QString text = QAccessibleWidget::text(what);
        // As for other drop-downs, the name is what is chosen; the label is a relation of its own.
        if (what != QAccessible::Name || button().title().isEmpty())
            return text;
        const bool hasLabel = text.isEmpty() || !relations(QAccessible::Label).isEmpty();
        return hasLabel ? button().title() : text + u' ' + button().title();
    }
    [[nodiscard]] QAccessible::State state() const override
    {
        QAccessible::State state = QAccessibleWidget::state();
        state.hasPopup = true;
        state.expandable = true;
        state.expanded = button().isOpen();
        state.collapsed = !button().isOpen();
        return state;
    }
    [[nodiscard]] QStringList actionNames() const override
    {
        QStringList names = QAccessibleWidget::actionNames();
        if (button().isEnabled())
            names.prepend(pressAction());
        return names;
    }
    void doAction(const QString& name) override
    {
        if (name == pressAction())
            button().click();
        else
            QAccessibleWidget::doAction(name);
    }

private:
    [[nodiscard]] PopUpButton& button() const { return static_cast<PopUpButton&>(*widget()); }
};

QAccessibleInterface* makeAccessible(const QString&, QObject* object)
{
    auto* const button = qobject_cast<PopUpButton*>(object);
    return button ? new PopUpButtonAccessible(*button) : nullptr;
}

bool isTyped(const QKeyEvent& event)
{
    const QString text = event.text();
    const bool isCommand = event.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier);
    return !isCommand && !text.isEmpty() && text.at(0).isPrint() && !text.at(0).isSpace();
}

} // namespace

PopUpButton::PopUpButton(QWidget* parent)
    : QAbstractButton(parent)
{
    [[maybe_unused]] static const bool isInstalled = (QAccessible::installFactory(makeAccessible), true);
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy({QSizePolicy::Expanding, QSizePolicy::Fixed, QSizePolicy::ComboBox});
    setAttribute(Qt::WA_Hover);
}

void PopUpButton::setTitle(const QString& title)
{
    const QString line = singleLine(title);
    if (line == title_)
        return;
    title_ = line;
    QAccessibleEvent changed(this, QAccessible::NameChanged);
    QAccessible::updateAccessibility(&changed);
    update();
}

void PopUpButton::setTakesText(bool takesText)
{
    takesText_ = takesText;
    setAttribute(Qt::WA_InputMethodEnabled, takesText);
}

void PopUpButton::setOpen(bool isOpen, QWidget* receiver)
{
    receiver_ = receiver;
    if (isOpen == isOpen_)
        return;
    isOpen_ = isOpen;
    QAccessible::State changed;
    changed.expanded = true;
    QAccessibleStateChangeEvent event(this, changed);
    QAccessible::updateAccessibility(&event);
    update();
}

void PopUpButton::initStyleOption(QStyleOptionComboBox& option) const
{
    option.initFrom(this);
    option.frame = true;
    option.subControls = QStyle::SC_All;
    if (isDown() || isOpen_)
        option.state |= QStyle::State_Sunken;
    else
        option.state |= QStyle::State_Raised;
}

QRect PopUpButton::titleRect() const
{
    QStyleOptionComboBox option;
    initStyleOption(option);
    return style()->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField, this);
}

QString PopUpButton::elided() const
{
    constexpr int labelMargins = 2; // which styles leave beside the text
    return fontMetrics().elidedText(title_, Qt::ElideRight, titleRect().width() - labelMargins);
}

QSize PopUpButton::sizeFor(int letters) const
{
    QStyleOptionComboBox option;
    initStyleOption(option);
    const int height = std::max(fontMetrics().height(), fontMetrics().lineSpacing());
    return style()->sizeFromContents(
        QStyle::CT_ComboBox, &option, QSize(letters * fontMetrics().averageCharWidth(), height), this);
}

QSize PopUpButton::sizeHint() const
{
    return sizeFor(usualLetters); // not that of the title, or rows would move when the user chooses
}

QSize PopUpButton::minimumSizeHint() const
{
    return sizeFor(leastLetters);
}

int PopUpButton::firstBaseline() const
{
    const QRect area = titleRect();
    return area.y() + centredBaseline(font(), area.height());
}

QVariant PopUpButton::inputMethodQuery(Qt::InputMethodQuery query) const
{
    return receiver_ ? receiver_->inputMethodQuery(query) : QAbstractButton::inputMethodQuery(query);
}

bool PopUpButton::event(QEvent* event)
{
    if (event->type() != QEvent::ToolTip || !toolTip().isEmpty())
        return QAbstractButton::event(event);
    showWholeText(static_cast<QHelpEvent&>(*event), *this, title_, elided() == title_);
    return true;
}

void PopUpButton::inputMethodEvent(QInputMethodEvent* event)
{
    const bool isText = !event->commitString().isEmpty() || !event->preeditString().isEmpty();
    if (!receiver_ && takesText_ && isText)
        Q_EMIT typed({});
    if (receiver_)
        QCoreApplication::sendEvent(receiver_, event);
    else
        event->ignore();
}

void PopUpButton::keyPressEvent(QKeyEvent* event)
{
    const bool opens
        = event->key() == Qt::Key_Down || event->key() == Qt::Key_Up || event->key() == Qt::Key_F4;
    if (opens && !event->isAutoRepeat())
        click();
    else if (takesText_ && isTyped(*event))
        Q_EMIT typed(event->text());
    else if (event->key() == Qt::Key_Left || event->key() == Qt::Key_Right)
        event->ignore(); // else they would lead to other controls
    else if (!opens)
        QAbstractButton::keyPressEvent(event);
}

void PopUpButton::paintEvent(QPaintEvent*)
{
    QStyleOptionComboBox option;
    initStyleOption(option);
    option.currentText = elided();
    QStylePainter painter(this);
    painter.drawComplexControl(QStyle::CC_ComboBox, option);
    painter.drawControl(QStyle::CE_ComboBoxLabel, option);
}

} // namespace quor::formkit
