// SPDX-License-Identifier: MIT
#include "Platform/Preferences/UserDefaults.h"
#include "Support/TemporaryDataHome.h"
#include "TestCalendars.h"

#include <gtest/gtest.h>

using namespace quor::toolkit;
using namespace Qt::StringLiterals;

TEST(EventStore, AccessIsRefusedInThePreferencesTypeByType)
{
    const quor::test::TemporaryDataHome home;
    EXPECT_EQ(EventStore::authorizationStatus(EntityType::event), AuthorizationStatus::fullAccess);
    ASSERT_TRUE(quor::platform::UserDefaults::standard().setObject(true, u"calendarAccessDenied"_s));
    EXPECT_EQ(EventStore::authorizationStatus(EntityType::event), AuthorizationStatus::denied);
    EXPECT_EQ(EventStore::authorizationStatus(EntityType::reminder), AuthorizationStatus::fullAccess);
}
