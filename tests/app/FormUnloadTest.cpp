#include "AppFixture.h"
#include "app/StartUp.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace app
{
namespace
{

using testing::ElementsAre;
using testing::IsEmpty;

TEST(FormUnload, ReleasesEventsFemapAndLogInThisOrder)
{
    SessionFixture f;
    Form_Load(f.session, allArguments);
    f.form.function = f.context.femap().feFunction();
    f.forgetLog();

    Form_Unload(f.session);

    EXPECT_THAT(f.logLines(), ElementsAre("DEBUG: Position at Unloading the form",
                                          "DEBUG: Setting Main femap instance to Nothing"));
    EXPECT_FALSE(f.host.hooked);
    EXPECT_EQ(f.connector.objects, 0);
    EXPECT_EQ(f.form.function, nullptr);
    EXPECT_TRUE(f.context.log.path().empty());
}

TEST(FormUnload, WorksTwice)
{
    SessionFixture f;
    Form_Load(f.session, allArguments);

    Form_Unload(f.session);
    Form_Unload(f.session);

    EXPECT_EQ(f.connector.objects, 0);
    EXPECT_FALSE(f.host.hooked);
}

TEST(FormUnload, WorksWhenFemapWasNeverReached)
{
    SessionFixture f;
    f.connector.attachRaises = true;
    f.connector.createRaises = true;
    Form_Load(f.session, allArguments);

    EXPECT_NO_THROW(Form_Unload(f.session));
}

TEST(FormUnload, AsksNothingOfADeadFemap)
{
    SessionFixture f;
    Form_Load(f.session, allArguments);
    f.connector.dieAtCall(1);

    Form_Unload(f.session);

    EXPECT_THAT(f.connector.calls, IsEmpty());
    EXPECT_EQ(f.connector.objects, 0);
}

TEST(FormUnload, TakesTheHookBackOnlyWhenItIsThere)
{
    SessionFixture f;
    Form_Load(f.session, allArguments);
    RestoreFormEvents(f.session);
    f.host.hooked = true;  // somebody else's

    Form_Unload(f.session);

    EXPECT_TRUE(f.host.hooked);
}

}  // namespace
}  // namespace app
