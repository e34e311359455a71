// SPDX-License-Identifier: MIT
#include "FormKit_macOS/Controls/DurationField.h"

#include <QAction>
#include <QContextMenuEvent>
#include <QDropEvent>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QMenu>
#include <QMimeData>

namespace quor::formkit {

bool DurationField::offer(QClipboard::Mode source)
{
    const auto offered = willPaste;
    return !isReadOnly() && offered(QGuiApplication::clipboard()->text(source));
}

void DurationField::keyPressEvent(QKeyEvent* event)
{
    const bool isPlain = !(event->modifiers() & ~Qt::KeypadModifier);
    if (isPlain && (event->key() == Qt::Key_Up || event->key() == Qt::Key_Down))
        Q_EMIT stepped(event->key() == Qt::Key_Up ? 1 : -1);
    else if (!event->matches(QKeySequence::Paste) || !offer(QClipboard::Clipboard))
        InputField::keyPressEvent(event);
}

void DurationField::contextMenuEvent(QContextMenuEvent* event)
{
    QMenu* const menu = createStandardContextMenu();
    if (!menu)
        return;
    menu->setAttribute(Qt::WA_DeleteOnClose);
    if (auto* const action = menu->findChild<QAction*>(QStringLiteral("edit-paste"))) {
        action->disconnect(this);
        connect(action, &QAction::triggered, this, [this] {
            if (!offer(QClipboard::Clipboard))
                paste();
        });
    }
    menu->popup(event->globalPos());
}

void DurationField::mouseReleaseEvent(QMouseEvent* event)
{
    const bool pastes
        = event->button() == Qt::MiddleButton && QGuiApplication::clipboard()->supportsSelection();
    if (!pastes || !offer(QClipboard::Selection))
        InputField::mouseReleaseEvent(event);
}

void DurationField::dropEvent(QDropEvent* event)
{
    const auto offered = willPaste;
    if (!isReadOnly() && event->mimeData()->hasText() && offered(event->mimeData()->text()))
        event->acceptProposedAction();
    else
        InputField::dropEvent(event);
}

} // namespace quor::formkit
