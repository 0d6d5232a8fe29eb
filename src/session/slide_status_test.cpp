#include "session/slide_status.h"

#include <gtest/gtest.h>

TEST(SlideStatus, NamesTheSlideAndTheCount)
{
    quillora::session::SessionFields fields;
    fields.currentSlide = "3";
    fields.slideCount = "12";
    EXPECT_EQ(quillora::session::slideStatusText(fields), "Slide 3/12");
}
