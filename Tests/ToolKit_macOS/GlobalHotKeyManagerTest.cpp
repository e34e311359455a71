// SPDX-License-Identifier: MIT
#include "ToolKit_macOS/GlobalHotKeyManager.h"
#include "Support/TestLog.h"
#include "Support/WaitFor.h"

#include <gmock/gmock.h>

#include <map>

using namespace quor::platform;
using quor::test::TestLog;
using quor::test::waitFor;
using quor::toolkit::GlobalHotKeyManager;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;

namespace {

/// A desktop that refuses the key 99, and fires on request.
class TestHotKeys final : public HotKeys {
public:
    [[nodiscard]] bool isAvailable() const override { return available; }
    [[nodiscard]] std::variant<Reference, HotKeyRefusal> registerHotKey(
        const HotKey& hotKey, Handlers handlers) override
    {
        signatures.push_back(hotKey.identifier.signature);
        if (hotKey.keyCode == 99)
            return HotKeyRefusal::taken;
        registered[Reference{++last}] = {hotKey.identifier, std::move(handlers)};
        return Reference{last};
    }
    void unregisterHotKey(Reference reference) override { registered.erase(reference); }
    [[nodiscard]] std::optional<HotKeyRefusal> refusal(Reference) const override { return std::nullopt; }
    [[nodiscard]] QString triggerText(Reference) const override { return {}; }

    bool available = true;
    std::uint64_t last = 0;
    std::vector<std::uint32_t> signatures;
    std::map<Reference, std::pair<HotKeyIdentifier, Handlers>> registered;
};

} // namespace

TEST(GlobalHotKeyManagerTest, NumbersAcceptedRegistrationsAndReportsTheCallersId)
{
    TestHotKeys desktop;
    auto manager = std::make_unique<GlobalHotKeyManager>(desktop);
    for (const std::uint32_t keyCode : {1, 99, 2, 2})
        manager->registerHotkey(keyCode, 0, 40 + keyCode);
    manager->unregisterAllHotkeys();
    EXPECT_TRUE(desktop.registered.empty());
    for (const std::uint32_t keyCode : {1, 2})
        manager->registerHotkey(keyCode, 0, 40 + keyCode);
    EXPECT_THAT(desktop.signatures, ElementsAre(1, 2, 2, 3, 1, 2));

    std::vector<std::uint32_t> fired;
    const auto fire = [&] {
        for (const auto& [reference, registration] : desktop.registered)
            registration.second.released(registration.first);
    };
    fire(); // without a handler
    QCoreApplication::processEvents();
    manager->hotkeyPressedHandler = [&](std::uint32_t id) { fired.push_back(id); };
    fire();
    EXPECT_TRUE(fired.empty()) << "the handler runs from the event loop";
    EXPECT_TRUE(waitFor([&] { return fired.size() == 2; }));
    EXPECT_THAT(fired, ElementsAre(41, 42));
    fire();
    manager.reset();
    EXPECT_TRUE(desktop.registered.empty());
    QCoreApplication::processEvents();
    EXPECT_EQ(fired.size(), 2U) << "the manager has ended";
}

TEST(GlobalHotKeyManagerTest, LogsThatItListens)
{
    const TestLog log;
    TestHotKeys desktop;
    desktop.available = false;
    const GlobalHotKeyManager without(desktop);
    EXPECT_THAT(log.text().toStdString(), Not(HasSubstr("installed")));
    desktop.available = true;
    const GlobalHotKeyManager with(desktop);
    EXPECT_THAT(log.text().toStdString(), HasSubstr(": GlobalHotKeyManager.init:"));
    EXPECT_THAT(log.text().toStdString(), HasSubstr(": Global Event Monitor installed."));
}
