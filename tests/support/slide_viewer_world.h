#pragma once

#include "deck/slide_viewer.h"
#include "tests/support/fake_image_surface.h"
#include "tests/support/fake_main_window.h"
#include "tests/support/fake_slide_panel.h"
#include "tests/support/file_contents.h"
#include "tests/support/temporary_folder.h"

#include <gtest/gtest.h>

#include <string>

namespace quillora::tests {

/// A slide viewer with a workspace of its own on the disk, and fakes of all that it shows slides on.
class SlideViewerWorld : public testing::Test {
  protected:
    SlideViewerWorld() { workspace.makeFolders(); }

    void make(const std::string& name) { writeFile(workspace.root() / name, name); }
    void makeDeck(int slides, const std::string& stem = "Slide", const std::string& extension = ".PNG")
    {
        for (int n = 1; n <= slides; ++n)
            make(stem + std::to_string(n) + extension);
        fields.slideCount = std::to_string(slides);
    }

    TemporaryFolder disk{};
    CallLog log{};
    FakeMainWindow window{log};
    FakeImageSurface slide_img{log, "slide_img"};
    FakeImageSurface slide_img_N{log, "slide_img_N"};
    FakeSlidePanel slide_img_back{};
    session::SessionFields fields{};
    session::Workspace workspace{fields, {.appData = disk.path(), .localAppData = disk.path()}};
    session::SlideTimeIndex index{fields, workspace};
    deck::SlideViewer viewer{
        {fields, window, workspace, index, slide_img, slide_img_N, slide_img_back, disk.path()}};
};

} // namespace quillora::tests
