#include "tests/forms/form_fixture.h"

#include "forms/backdrop_widget.h"
#include "forms/stage_widget.h"
#include "stage/stage_surfaces.h"
#include "tests/support/file_contents.h"

#include <QAbstractButton>
#include <QtEndian>

using namespace quillora;
using tests::FormTest;
using tests::plainPicture;

namespace {

/// The bare stage, with the backdrop in sight.
class BackdropFormTest : public FormTest {
  protected:
    BackdropFormTest() { form.surfaces().slide_img_back.setVisible(false); }

    stage::BackdropPicture& back_img() { return form.Picture1().back_img(); }
    bool shows(QColor colour)
    {
        return tests::waitUntil([&] {
            const QColor seen = grabStage().pixelColor(400, 200);
            return std::abs(seen.red() - colour.red()) < 8 && std::abs(seen.green() - colour.green()) < 8 &&
                   std::abs(seen.blue() - colour.blue()) < 8;
        });
    }
    /// A BMP of no more than its head, which says that it is this large.
    std::filesystem::path bmpThatClaims(int width, int height)
    {
        std::string head(54, '\0');
        head[0] = 'B';
        head[1] = 'M';
        qToLittleEndian<quint32>(54, &head[10]);
        qToLittleEndian<quint32>(40, &head[14]);
        qToLittleEndian<qint32>(width, &head[18]);
        qToLittleEndian<qint32>(height, &head[22]);
        qToLittleEndian<quint16>(1, &head[26]);
        qToLittleEndian<quint16>(24, &head[28]);
        const auto path = folder.path() / "huge.bmp";
        tests::writeFile(path, head);
        return path;
    }
};

} // namespace

TEST_F(BackdropFormTest, IsThePictureOfTheDesignAtFirst)
{
    ASSERT_TRUE(shown);
    const QImage design(QStringLiteral(":/quillora/design/backdrop.jpg"));
    ASSERT_EQ(design.size(), QSize(747, 420));
    EXPECT_TRUE(
        tests::waitUntil([&] { return grabStage() == design.convertToFormat(QImage::Format_RGB32); }));
}

TEST_F(BackdropFormTest, IsStretchedOverTheStageInEachKindOfPicture)
{
    ASSERT_TRUE(shown);
    back_img().load(save(plainPicture({10, 90}, Qt::darkRed), "a.jpg", "JPG"));
    EXPECT_TRUE(shows(Qt::darkRed));
    back_img().load(save(plainPicture({90, 10}, Qt::darkBlue), "b.bmp", "BMP"));
    EXPECT_TRUE(shows(Qt::darkBlue));
    back_img().load(std::filesystem::path(QUILLORA_ASSETS) / "grid.gif");
    EXPECT_FALSE(grabStage().isNull());
}

TEST_F(BackdropFormTest, TakesAPathOfOddCharacters)
{
    ASSERT_TRUE(shown);
    const auto odd = folder.path() / "ö #1%25 'a'\n\"b\".jpg";
    std::filesystem::copy(save(plainPicture({10, 10}, Qt::darkGreen), "plain.jpg", "JPG"), odd);
    back_img().load(odd);
    EXPECT_TRUE(shows(Qt::darkGreen));
}

TEST_F(BackdropFormTest, StaysWhenTheFileIsNoPictureOfItsKinds)
{
    ASSERT_TRUE(shown);
    back_img().load(save(plainPicture({10, 10}, Qt::darkRed), "a.jpg", "JPG"));
    tests::writeFile(folder.path() / "text.jpg", "this is no picture");
    tests::writeFile(folder.path() / "empty.jpg", "");
    tests::writeFile(folder.path() / "half.jpg", tests::readFile(folder.path() / "a.jpg").substr(0, 40));
    for (const char* name : {"text.jpg", "empty.jpg", "half.jpg", "missing.jpg"})
        EXPECT_THROW(back_img().load(folder.path() / name), std::runtime_error) << name;
    EXPECT_THROW(back_img().load({}), std::runtime_error);
    EXPECT_THROW(back_img().load(folder.path()), std::runtime_error);
    EXPECT_THROW(back_img().load(save(plainPicture({10, 10}, Qt::blue), "b.png")), std::runtime_error);
    EXPECT_TRUE(shows(Qt::darkRed));
}

TEST_F(BackdropFormTest, RefusesAPictureThatClaimsThirtyThousandPixelsASide)
{
    EXPECT_THROW(back_img().load(bmpThatClaims(30000, 30000)), std::runtime_error);
    EXPECT_THROW(back_img().load(bmpThatClaims(2000000000, 2)), std::runtime_error);
    EXPECT_THROW(back_img().load(bmpThatClaims(-5, 10)), std::runtime_error);
}

TEST_F(BackdropFormTest, IsOfferedByAButtonInTheFreeStrip)
{
    int clicks = 0;
    QObject::connect(&form.Picture1(), &forms::StageWidget::changeback_btn_Click, [&] { ++clicks; });
    form.setChangeBackVisible(true);
    find<QAbstractButton>("changeback_btn")->click();
    EXPECT_EQ(clicks, 1);
}
