#include "fake/FormFixture.h"
#include "form/FormProcedures.h"

#include <gtest/gtest.h>

// FEMAP is not needed for this and may be gone.
TEST(LastRowOfAGrid, IsToldToStayOnTheStatusLine)
{
    fake::FormFixture f;
    f.context.application.reset();
    fake::fill(f.form.InputsList, {"a"});

    form::ClearInputSelection_Click(f.context);

    EXPECT_EQ(f.form.StatusLine.Caption, "The last parameter row cannot be removed");
}

TEST(LastRowOfAGrid, IsNoMatterWhenEveryMarkedRowCouldGo)
{
    fake::FormFixture f;
    fake::fill(f.form.OutputsList, {"a", "b"});

    form::ClearOutputSelection_Click(f.context);

    EXPECT_EQ(f.form.StatusLine.Caption, "");
}
