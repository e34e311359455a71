// SPDX-License-Identifier: MIT
#pragma once

#include "FormKit/Form.h"
#include "FormKit_macOS/Controls/InputField.h"
#include "FormKit_macOS/FormViewFactory.h"
#include "FormKit_macOS/Rendering/FormViewRenderer.h"

#include <QApplication>
#include <QClipboard>
#include <QInputMethodEvent>
#include <QScrollArea>
#include <QTest>

#include <gtest/gtest.h>

namespace quor::test {

/// A form in a window.
class FormInputs : public testing::Test {
protected:
    template <class Element>
    std::shared_ptr<Element> show(std::shared_ptr<Element> element)
    {
        form_->addElement(element);
        element->setValueChanged([this](formkit::FormElement&) { ++changes_; });
        render();
        window_.resize(400, 300);
        window_.show();
        window_.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window_));
        element->focusableViews().front()->setFocus();
        return element;
    }
    void render()
    {
        form_->setNeedsRender(true);
        renderer_.render(*form_);
    }
    static formkit::InputField& field(const formkit::FormElement& element, std::size_t index = 0)
    {
        return *qobject_cast<formkit::InputField*>(element.focusableViews()[index]);
    }
    static QString texts(const formkit::FormElement& element)
    {
        QStringList texts;
        for (std::size_t i = 0; i < element.focusableViews().size(); ++i)
            texts += field(element, i).text();
        return texts.join(u' ');
    }
    static void compose(QWidget& view, const QString& preedit, const QString& commit = {})
    {
        QInputMethodEvent event(preedit, {});
        event.setCommitString(commit);
        QApplication::sendEvent(&view, &event);
    }
    static void paste(QWidget& view, const QString& text)
    {
        QApplication::clipboard()->setText(text);
        QTest::keySequence(&view, QKeySequence::Paste);
    }

    QWidget window_;
    std::shared_ptr<formkit::Form> form_ = std::make_shared<formkit::Form>(
        std::nullopt, std::make_shared<formkit::FormViewFactory>(), 400, 0.6);
    formkit::FormViewRenderer renderer_{formkit::FormViewRenderer::RenderMode::normal, window_, false};
    int changes_ = 0;
};

} // namespace quor::test
