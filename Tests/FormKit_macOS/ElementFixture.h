// SPDX-License-Identifier: MIT
#pragma once

#include "FormKit/Form.h"
#include "FormKit_macOS/Controls/ResizeTextView.h"
#include "FormKit_macOS/Elements/FormBase.h"
#include "FormKit_macOS/FormViewFactory.h"

#include <QAccessible>
#include <QApplication>
#include <QKeyEvent>
#include <QTest>
#include <QVBoxLayout>

#include <gtest/gtest.h>

namespace quor::test {

/// A window that shows the views of elements below each other, 300 pixels wide.
class FormElements : public testing::Test {
protected:
    FormElements() { window_.setLayout(layout_); }

    template <class T, class... Arguments>
    std::shared_ptr<T> add(Arguments&&... arguments)
    {
        auto element = formkit::makeElement<T>(std::forward<Arguments>(arguments)...);
        form_->addElement(element);
        layout_->addWidget(element->view());
        return element;
    }
    void show(int width = 300)
    {
        layout_->addStretch();
        window_.resize(width, 500);
        window_.show();
        window_.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window_));
    }
    static QPoint linkPlace(const formkit::ResizeTextView& view)
    {
        for (int y = 1; y < view.height(); y += 3)
            for (int x = 1; x < view.width(); x += 3)
                if (!view.anchorAt({x, y}).isEmpty())
                    return {x, y};
        return {-1, -1};
    }
    static void click(QWidget* widget, QPoint place = {})
    {
        QTest::mouseClick(widget, Qt::LeftButton, {}, place);
    }

    static void holdReturn(QWidget* widget)
    {
        QKeyEvent repeated(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, QStringLiteral("\r"), true);
        QApplication::sendEvent(widget, &repeated);
    }
    static void toggleByScreenReader(QWidget* widget)
    {
        QAccessible::queryAccessibleInterface(widget)->actionInterface()->doAction(
            QAccessibleActionInterface::toggleAction());
    }
    static QAccessible::Role role(QWidget* widget)
    {
        return QAccessible::queryAccessibleInterface(widget)->role();
    }

    std::shared_ptr<formkit::Form> form_ = std::make_shared<formkit::Form>(
        QStringLiteral("Form"), std::make_shared<formkit::FormViewFactory>(), 300, 0.6);
    QWidget window_;
    QVBoxLayout* layout_ = new QVBoxLayout;
};

} // namespace quor::test
