// SPDX-License-Identifier: MIT
#include "ToolKit_macOS/GlobalHotKeyManager.h"

#include "Platform/Concurrency/MainQueue.h"
#include "Platform/Lifetime/WhileAlive.h"
#include "ToolKit/Logging/Logger.h"

#include <utility>

using namespace Qt::StringLiterals;

namespace quor::toolkit {

GlobalHotKeyManager::GlobalHotKeyManager(platform::HotKeys& hotKeys)
    : hotKeys_(hotKeys)
{
    if (hotKeys.isAvailable())
        Logger::log(u"Global Event Monitor installed.", __FILE__, "init()", __LINE__, true);
}

void GlobalHotKeyManager::registerHotkey(
    std::uint32_t keyCode, std::uint32_t modifiers, std::uint32_t id, const QString& description)
{
    const auto signature = std::uint32_t(registeredHotkeys().size() + 1);
    const auto released = [this](platform::HotKeyIdentifier identifier) {
        platform::MainQueue::async(
            platform::whileAlive(*this, [this, identifier] { hotkeyPressedHandler(identifier.id); }));
    };
    auto outcome = hotKeys_.registerHotKey({keyCode, modifiers, {signature, id}, description},
        {platform::whileAlive(*this, released),
            platform::whileAlive(*this, [this] { hotkeysChangedHandler(); })});
    registrations_.push_back({keyCode, modifiers, id, outcome});
}

void GlobalHotKeyManager::unregisterAllHotkeys()
{
    for (const auto& registration : std::exchange(registrations_, {})) {
        if (const auto* reference = std::get_if<EventHotKeyRef>(&registration.outcome))
            hotKeys_.unregisterHotKey(*reference);
    }
}

std::vector<GlobalHotKeyManager::EventHotKeyRef> GlobalHotKeyManager::registeredHotkeys() const
{
    std::vector<EventHotKeyRef> references;
    for (const auto& registration : registrations_) {
        if (const auto* reference = std::get_if<EventHotKeyRef>(&registration.outcome))
            references.push_back(*reference);
    }
    return references;
}

std::vector<GlobalHotKeyManager::RefusedHotkey> GlobalHotKeyManager::refusedHotkeys() const
{
    std::vector<RefusedHotkey> refused;
    for (const auto& [keyCode, modifiers, id, outcome] : registrations_) {
        const auto* reference = std::get_if<EventHotKeyRef>(&outcome);
        const auto reason = reference ? hotKeys_.refusal(*reference)
                                      : std::optional(std::get<platform::HotKeyRefusal>(outcome));
        if (reason)
            refused.push_back({keyCode, modifiers, id, *reason});
    }
    return refused;
}

QString GlobalHotKeyManager::triggerText(std::uint32_t id) const
{
    for (const auto& registration : registrations_) {
        const auto* reference = std::get_if<EventHotKeyRef>(&registration.outcome);
        auto text = reference && registration.id == id ? hotKeys_.triggerText(*reference) : QString();
        if (!text.isEmpty())
            return text;
    }
    return {};
}

} // namespace quor::toolkit
