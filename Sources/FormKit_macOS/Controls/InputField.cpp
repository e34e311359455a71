// SPDX-License-Identifier: MIT
#include "FormKit_macOS/Controls/InputField.h"

#include <QKeyEvent>
#include <QPointer>
#include <QScopedValueRollback>

#include <algorithm>
#include <limits>

using namespace Qt::StringLiterals;

namespace quor::formkit {

namespace {

bool isLineBreak(QChar character)
{
    constexpr QStringView breaks = u"\n\r\v\f\u0085\u2028\u2029";
    return breaks.contains(character);
}

QString inOneLine(const QString& text)
{
    QString line;
    line.reserve(text.size());
    for (qsizetype i = 0; i < text.size(); ++i) {
        if (!isLineBreak(text[i]))
            line += text[i];
        else if (i == 0 || text[i] != u'\n' || text[i - 1] != u'\r')
            line += u' ';
    }
    return line;
}

} // namespace

InputField::InputField(QWidget* parent)
    : QLineEdit(parent)
{
    setMaxLength(std::numeric_limits<int>::max()); // Qt would cut off longer texts silently
    // `textEdited` is not emitted for changes by screen readers and the like.
    connect(this, &QLineEdit::textChanged, this, &InputField::noteChange);
}

void InputField::setShownText(const QString& text)
{
    const QScopedValueRollback setting(isSetting_, true);
    isEdited_ = false;
    if (text != this->text())
        setText(text);
}

void InputField::noteChange()
{
    if (isSetting_)
        return;
    if (const QString given = text(); std::any_of(given.begin(), given.end(), isLineBreak)) {
        const auto caret = inOneLine(given.left(cursorPosition())).size();
        const QScopedValueRollback setting(isSetting_, true);
        setText(inOneLine(given));
        setCursorPosition(int(caret));
    }
    isEdited_ = true;
    Q_EMIT edited();
}

void InputField::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Return && !event->isAutoRepeat()) {
        const QPointer<InputField> life(this);
        Q_EMIT returnKeyPressed();
        if (!life)
            return;
    }
    QLineEdit::keyPressEvent(event);
}

} // namespace quor::formkit
