#include "ProductFixture.h"
#include "app/SecondForm.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using testing::HasSubstr;
using testing::Not;

namespace
{

using SecondForm = driver::Product;

TEST_F(SecondForm, OnTheSameModelSaysSoFirst)
{
    start(L"$first.log$DEBUG");
    const std::string ofFirst = form->text("StatusLine");
    const auto first = std::move(process);

    start(L"$second.log$DEBUG");

    EXPECT_THAT(ofFirst, Not(HasSubstr(app::secondForm)));
    EXPECT_TRUE(driver::waitUntil([&] {
        return form->text("StatusLine").starts_with(app::secondForm);
    })) << form->text("StatusLine");
    EXPECT_THAT(files.read("korva/second.log"), HasSubstr(app::secondForm));
}

}  // namespace
