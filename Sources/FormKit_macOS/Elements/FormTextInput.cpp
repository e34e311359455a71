// SPDX-License-Identifier: MIT
#include "FormKit_macOS/Elements/FormTextInput.h"

#include "FormKit_macOS/Controls/SearchField.h"
#include "Platform/Lifetime/WhileAlive.h"

#include <QApplication>

namespace quor::formkit {

namespace {

std::unique_ptr<InputField> makeFieldFor(TextInputType type)
{
    if (type == TextInputType::search)
        return std::make_unique<SearchField>();
    auto field = std::make_unique<InputField>();
    if (type == TextInputType::secure)
        field->setEchoMode(QLineEdit::Password);
    if (type == TextInputType::readonly) {
        field->setReadOnly(true);
        field->setFrame(false);
        QPalette withoutBackground;
        withoutBackground.setColor(QPalette::Base, Qt::transparent);
        field->setPalette(withoutBackground);
    }
    return field;
}

} // namespace

std::size_t FormTextInput::indexOf(TextInputType type)
{
    switch (type) {
    case TextInputType::text:
    case TextInputType::email:
        return 0;
    case TextInputType::secure:
        return 1;
    case TextInputType::search:
        return 2;
    case TextInputType::readonly:
        return 3;
    }
    return 0;
}

FormTextInput::Field FormTextInput::makeField()
{
    Field field(makeFieldFor(type_));
    QObject::connect(
        field.get(), &InputField::edited, field.get(), platform::whileAlive(*this, [this] { edited(); }));
    QObject::connect(field.get(), &InputField::returnKeyPressed, field.get(),
        platform::whileAlive(*this, [this] { enterPressed_(*this); }));
    return field;
}

void FormTextInput::setup()
{
    setType(type_);
}

void FormTextInput::setType(TextInputType type)
{
    type_ = type;
    if (Field& field = fields_[indexOf(type)]; !field)
        field = makeField();
    field()->setInputMethodHints((field()->inputMethodHints() & ~Qt::ImhEmailCharactersOnly)
        | (type == TextInputType::email ? Qt::ImhEmailCharactersOnly : Qt::ImhNone));
    field()->setPlaceholderText(placeholder_);
    field()->setEnabled(enabled());
}

void FormTextInput::edited()
{
    setHasChanges(true);
    delayedWorker_.run(platform::whileAlive(*this, [this] { notifyValueChanged(); }));
}

QString FormTextInput::value() const
{
    return field() ? field()->text() : QString();
}

void FormTextInput::setValue(const QString& value)
{
    if (field())
        field()->setShownText(value);
}

void FormTextInput::setPlaceholder(const QString& placeholder)
{
    placeholder_ = placeholder;
    if (field())
        field()->setPlaceholderText(placeholder);
}

void FormTextInput::setEnabled(bool enabled)
{
    FormBase::setEnabled(enabled);
    if (field())
        field()->setEnabled(enabled);
}

void FormTextInput::endEditing()
{
    if (const QWidget* const window = QApplication::activeWindow(); window && window->focusWidget())
        window->focusWidget()->clearFocus();
}

} // namespace quor::formkit
