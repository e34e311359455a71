// SPDX-License-Identifier: MIT
#include "ToolKit_macOS/Alert.h"

#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QStyle>

#include <utility>

namespace quor::toolkit {

namespace {

constexpr const char* tagProperty = "alertTag";

QLabel* makeText(QWidget* parent)
{
    constexpr int readableWidth = 320; // device-independent pixels
    auto* label = new QLabel(parent);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    label->setMinimumWidth(readableWidth);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    label->hide();
    return label;
}

QDialogButtonBox::ButtonRole roleOf(int tag)
{
    if (tag == Alert::cancelTag)
        return QDialogButtonBox::RejectRole;
    return tag == 0 ? QDialogButtonBox::AcceptRole : QDialogButtonBox::ActionRole;
}

} // namespace

Alert::Alert(QWidget* parent)
    : QDialog(parent)
    , icon_(new QLabel(this))
    , message_(makeText(this))
    , informative_(makeText(this))
    , texts_(new QVBoxLayout)
    , buttons_(new QDialogButtonBox(this))
{
    QFont bold = message_->font();
    bold.setBold(true);
    message_->setFont(bold);
    texts_->addWidget(message_);
    texts_->addWidget(informative_);
    texts_->addStretch();

    auto* body = new QHBoxLayout;
    body->setSpacing(2 * style()->pixelMetric(QStyle::PM_LayoutHorizontalSpacing));
    body->addWidget(icon_, 0, Qt::AlignTop);
    body->addLayout(texts_, 1);
    auto* all = new QVBoxLayout(this);
    all->addLayout(body);
    all->addWidget(buttons_);
    all->setSizeConstraint(QLayout::SetFixedSize);

    setAlertIcon({});
    connect(buttons_, &QDialogButtonBox::clicked, this,
        [this](QAbstractButton* clicked) { end(clicked->property(tagProperty).toInt()); });
}

Alert::~Alert()
{
    setAccessoryView(nullptr);
}

void Alert::setAlertIcon(const QIcon& icon)
{
    const QIcon shown = icon.isNull() ? style()->standardIcon(QStyle::SP_MessageBoxWarning) : icon;
    const int size = style()->pixelMetric(QStyle::PM_MessageBoxIconSize, nullptr, this);
    icon_->setPixmap(shown.pixmap(QSize(size, size), devicePixelRatioF()));
}

void Alert::setMessageText(const QString& text)
{
    message_->setText(text);
    message_->setVisible(!text.isEmpty());
    setAccessibleName(text);
}

void Alert::setInformativeText(const QString& text)
{
    informative_->setText(text);
    informative_->setVisible(!text.isEmpty());
    setAccessibleDescription(text);
}

void Alert::setAccessoryView(QWidget* view)
{
    if (accessory_ && accessory_->parentWidget() == this) {
        accessory_->hide();
        accessory_->setParent(nullptr);
    }
    accessory_ = view;
    if (!view)
        return;
    constexpr int indexBelowTexts = 2;
    texts_->insertWidget(indexBelowTexts, view, 0, Qt::AlignLeft);
    view->show();
}

QPushButton* Alert::addButton(const QString& title, int tag)
{
    const bool isFirst = buttons_->buttons().isEmpty();
    QPushButton* button = buttons_->addButton(title, roleOf(tag));
    button->setProperty(tagProperty, tag);
    button->setDefault(isFirst);
    button->setAutoDefault(isFirst);
    if (isFirst)
        button->setFocus();
    return button;
}

QPushButton* Alert::button(int tag) const
{
    for (QAbstractButton* button : buttons_->buttons())
        if (button->property(tagProperty).toInt() == tag)
            return qobject_cast<QPushButton*>(button);
    return nullptr;
}

std::optional<int> Alert::escapeTag() const
{
    if (button(cancelTag))
        return cancelTag;
    const QList<QAbstractButton*> all = buttons_->buttons();
    return all.size() == 1 ? std::optional(all.front()->property(tagProperty).toInt()) : std::nullopt;
}

void Alert::reject()
{
    if (const std::optional<int> tag = escapeTag())
        end(*tag);
}

void Alert::end(int tag)
{
    const auto handler = std::exchange(ended, nullptr);
    done(tag == 0 ? Accepted : Rejected);
    handler(tag);
}

void Alert::dismiss()
{
    ended = nullptr;
    done(Rejected);
}

} // namespace quor::toolkit
