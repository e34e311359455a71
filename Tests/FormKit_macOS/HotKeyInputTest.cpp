// SPDX-License-Identifier: MIT
#include "ElementFixture.h"
#include "FormKit_macOS/Elements/FormHotKeyInput.h"
#include "Support/TestEventMonitors.h"

#include <QAbstractButton>
#include <QShortcut>

using namespace Qt::StringLiterals;
using namespace quor::formkit;
using namespace quor::platform;

namespace {

class TestLayout final : public KeyboardLayout {
public:
    [[nodiscard]] QString text(std::uint32_t keyCode) const override
    {
        return keyCode == 0 ? u"a"_s : QString();
    }
};

// The key codes of A, B and F5.
constexpr std::uint32_t keyA = 0x00, keyB = 0x0B, keyF5 = 0x60, tab = 0x30, escape = 0x35;

class HotKeyInput : public quor::test::FormElements {
protected:
    void SetUp() override
    {
        show();
        input->setValueChanged([this](FormElement&) { ++changes; });
    }
    /// Returns whether the window gets the event.
    bool send(EventType type, std::uint32_t keyCode, Qt::KeyboardModifiers modifiers)
    {
        return monitors.fireLocal({type, {}, modifiers, nullptr, keyCode});
    }
    bool press(std::uint32_t keyCode, Qt::KeyboardModifiers modifiers)
    {
        return send(EventType::keyDown, keyCode, modifiers);
    }
    [[nodiscard]] bool isCapturing() const { return !monitors.local.empty(); }
    [[nodiscard]] std::tuple<int, int, QString, bool> state() const
    {
        return {field.keyCode(), field.modifier(), field.text(), button.isVisible()};
    }

    const std::tuple<int, int, QString, bool> empty{-1, -1, u""_s, false};
    quor::test::TestEventMonitors monitors;
    TestLayout layout;
    std::shared_ptr<FormHotKeyInput> input = add<FormHotKeyInput>(monitors, layout);
    HotkeyField& field = *input->textInput();
    QAbstractButton& button = *field.findChild<QAbstractButton*>();
    int changes = 0;
};

} // namespace

TEST_F(HotKeyInput, CapturesOneCombinationAndDeletesIt)
{
    constexpr auto controlCommand = Qt::ControlModifier | Qt::MetaModifier;
    field.setFocus();
    EXPECT_TRUE(isCapturing());
    EXPECT_FALSE(send(EventType::flagsChanged, 0x3B, Qt::ControlModifier));
    EXPECT_EQ(field.text(), u"⌃"_s);
    EXPECT_TRUE(send(EventType::flagsChanged, 0x3B, Qt::NoModifier));
    EXPECT_EQ(state(), empty);
    EXPECT_FALSE(send(EventType::flagsChanged, 0x37, controlCommand));
    EXPECT_FALSE(send(EventType::keyUp, keyA, controlCommand));
    EXPECT_FALSE(input->hasChanges());
    EXPECT_FALSE(press(keyA, controlCommand));
    EXPECT_EQ(state(), std::tuple(0, 0x1100, u"⌃⌘a"_s, true));
    EXPECT_TRUE(input->hasChanges());
    EXPECT_EQ(changes, 1);
    EXPECT_FALSE(isCapturing() || field.hasFocus());
    field.setFocus();
    EXPECT_FALSE(isCapturing()) << "the field holds a hot key";

    click(&button);
    EXPECT_EQ(state(), empty);
    EXPECT_EQ(changes, 2);
    field.setHotkey(keyF5, 0);
    EXPECT_EQ(state(), std::tuple(0x60, 0, u"F5"_s, true));
    EXPECT_EQ(changes, 2);
    field.setFocus();
    QTest::keyClick(&field, Qt::Key_Delete);
    EXPECT_EQ(state(), empty);
    EXPECT_EQ(changes, 3);
    EXPECT_TRUE(input->focusableViews().empty());
}

TEST_F(HotKeyInput, TakesOnlyWhatCanStillBeTyped)
{
    const struct {
        std::uint32_t keyCode;
        Qt::KeyboardModifiers modifiers;
        bool isPassedOn, isTaken;
    } cases[] = {{keyA, Qt::NoModifier, false, false}, {keyA, Qt::ShiftModifier, false, false},
        {tab, Qt::NoModifier, true, false}, {tab, Qt::ShiftModifier, true, false},
        {tab, Qt::ControlModifier, false, true}, {keyB, Qt::AltModifier, false, true},
        {keyF5, Qt::NoModifier, false, true}, {keyF5, Qt::ShiftModifier, false, true},
        {escape, Qt::MetaModifier, false, false}};
    for (const auto& each : cases) {
        field.setHotkey(-1, -1);
        field.setFocus();
        EXPECT_EQ(press(each.keyCode, each.modifiers), each.isPassedOn) << each.keyCode;
        EXPECT_EQ(field.keyCode(), each.isTaken ? int(each.keyCode) : -1) << each.keyCode;
    }
    EXPECT_FALSE(field.hasFocus()) << "Escape ends the capture";
    EXPECT_EQ(state(), empty);
}

TEST_F(HotKeyInput, EndsTheCaptureWithTheFocusTheFieldOrItsUse)
{
    const auto restart = [&] {
        field.clearFocus();
        field.setFocus();
        EXPECT_FALSE(send(EventType::flagsChanged, 0x3B, Qt::ControlModifier));
        return isCapturing();
    };
    EXPECT_TRUE(restart());
    field.clearFocus();
    EXPECT_FALSE(isCapturing());
    EXPECT_EQ(field.text(), u""_s) << "shows modifiers of a capture that has ended";
    EXPECT_TRUE(restart());
    input->setEnabled(false);
    EXPECT_FALSE(isCapturing());
    input->setEnabled(true);
    EXPECT_TRUE(restart());
    const QShortcut shortcut(QKeySequence(Qt::CTRL | Qt::Key_B), &window_);
    bool isTriggered = false;
    QObject::connect(&shortcut, &QShortcut::activated, [&] { isTriggered = true; });
    QTest::keyClick(window_.windowHandle(), Qt::Key_B, Qt::ControlModifier);
    EXPECT_FALSE(isTriggered) << "a shortcut of the application gets what is to be captured";
    input->setValueChanged([&](FormElement&) {
        form_->removeElement(*input);
        input.reset();
    });
    EXPECT_FALSE(press(keyB, Qt::ControlModifier));
    EXPECT_FALSE(isCapturing());
    EXPECT_EQ(input, nullptr);
}
