#include "core/HL_MATH_FUN.h"
#include <gtest/gtest.h>

TEST(Wrap, HeadingWrapsIntoRange)
{
	EXPECT_FLOAT_EQ(fltwrap(370.0f, 0.0f, 360.0f), 10.0f);
	EXPECT_FLOAT_EQ(fltwrap(-10.0f, 0.0f, 360.0f), 350.0f);
	EXPECT_FLOAT_EQ(fltlim(5.0f, 0.0f, 1.0f), 1.0f);
}
