// SPDX-License-Identifier: MIT
#pragma once

#include "FormKit_macOS/Elements/FormBase.h"

#include <QCoreApplication>
#include <QEvent>
#include <QLineEdit>

/// An input of one line.
class FieldElement final : public quor::formkit::FormBase {
public:
    using FormBase::FormBase;
    QWidget* view() const override { return field_.get(); }
    std::vector<QWidget*> focusableViews() const override { return {view()}; }

private:
    quor::platform::WidgetHandle<QLineEdit> field_ = quor::platform::makeWidget<QLineEdit>();
};

/// Ends what the handles of ended elements have left.
inline void deleteWidgets()
{
    QCoreApplication::sendPostedEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}
