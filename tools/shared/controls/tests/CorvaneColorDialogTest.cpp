// A colour chosen by keyboard, mouse and custom colours.
#include "CorvaneColorDialog.h"
#include "ColorPalette.h"
#include "ColorSwatch.h"
#include "MemoryFileSystem.h"
#include "NumberEdit.h"
#include "Profile.h"

#include <QAbstractButton>
#include <QPainter>
#include <QTest>
#include <gtest/gtest.h>

namespace
{
constexpr std::u16string_view kSection = u"Custom.Colors";

struct SColorDialogTest : testing::Test
{
    template <class T> T& Find(const char* name)
    {
        return *m_Dialog.findChild<T*>(QString::fromLatin1(name));
    }
    void Type(const char* name, const char* text)
    {
        auto& edit = Find<QLineEdit>(name);
        edit.setFocus();
        edit.selectAll();
        QTest::keyClicks(&edit, QString::fromLatin1(text));
    }

    CMemoryFileSystem m_Files;
    CProfile m_Profile{m_Files, u"/profile.ini"};
    CCorvaneColorDialog m_Dialog{m_Profile, 0x80302010U};
};
} // namespace

TEST_F(SColorDialogTest, FieldsBarsAndHexShowOneColor)
{
    m_Dialog.show();
    EXPECT_EQ(Find<CNumberEdit>("red").text(), u"16");
    EXPECT_EQ(Find<CNumberEdit>("alpha").text(), u"128");
    Type("red", "300");
    EXPECT_EQ(m_Dialog.GetColor(), 0x803020FFU);
    EXPECT_EQ(Find<QLineEdit>("hex").text(), u"#FF2030");
    Type("hex", "0080ff");
    EXPECT_EQ(m_Dialog.GetColor(), 0x80FF8000U);
    QTest::keyClick(&Find<QWidget>("alphaBar"), Qt::Key_Home);
    EXPECT_EQ(Find<CNumberEdit>("alpha").text(), u"255");

    // Down to black and up again: hue and saturation are still those of before.
    auto& value = Find<QWidget>("value");
    QTest::keyClick(&value, Qt::Key_End);
    EXPECT_EQ(m_Dialog.GetColor(), 0xFF000000U);
    QTest::keyClick(&value, Qt::Key_Home);
    EXPECT_EQ(m_Dialog.GetColor(), 0xFFFF8000U);
    auto& field = Find<QWidget>("field");
    QTest::mouseClick(&field, Qt::LeftButton, Qt::NoModifier, QPoint(3, 3));
    EXPECT_EQ(m_Dialog.GetColor(), 0xFF0000FFU) << "hue 0, full saturation";
    QTest::keyClick(&field, Qt::Key_Down, Qt::ShiftModifier);
    EXPECT_EQ(m_Dialog.GetColor(), 0xFF0A0AFFU);

    Type("blue", "");
    QTest::keyClick(&Find<QWidget>("blue"), Qt::Key_Backspace);
    m_Dialog.accept();
    EXPECT_EQ(m_Dialog.GetColor(), 0xFF000AFFU) << "an empty field is 0";
}

TEST_F(SColorDialogTest, CustomColorsAreKeptWithWhatTheyAreFor)
{
    m_Profile.SetString(kSection, u"Color13", u" 64,   1, 400");
    m_Dialog.show();
    auto& palette = Find<CColorPalette>("palette");
    QTest::mouseClick(&palette, Qt::LeftButton, Qt::NoModifier, palette.GetCell(23).center());
    EXPECT_EQ(m_Dialog.GetColor(), 0xFFFFFFFFU) << "a missing one";
    QTest::mouseClick(&palette, Qt::LeftButton, Qt::NoModifier, palette.GetCell(0).center());
    for (const Qt::Key key : {Qt::Key_Right, Qt::Key_Down, Qt::Key_Space})
        QTest::keyClick(&palette, key);
    EXPECT_EQ(m_Dialog.GetColor(), 0x40FFFF01U);

    Type("green", "9");
    QTest::mouseClick(&Find<QAbstractButton>("storeCustom"), Qt::LeftButton);
    Type("description", "moss, % and = too");
    EXPECT_EQ(m_Profile.GetString(kSection, u"Color13", u""), u" 64,   1,   9, 255");
    EXPECT_EQ(m_Profile.GetString(kSection, u"Description.Color13", u""), u"moss, % and = too");
    const CCorvaneColorDialog other(m_Profile, 0);
    EXPECT_EQ(other.findChild<QLineEdit*>(QStringLiteral("description"))->text(), QString());
}

TEST(ColorSwatchTest, BlendsOverTheChequer)
{
    const QColor color(200, 100, 0, 128);
    EXPECT_EQ(UnpackColor(PackColor(color)), color);
    QImage image(16, 16, QImage::Format_RGB32);
    QPainter painter(&image);
    DrawColorSwatch(painter, image.rect(), color);
    EXPECT_NE(image.pixel(0, 0), image.pixel(4, 0));
    DrawColorSwatch(painter, image.rect(), Qt::red);
    EXPECT_EQ(image.pixelColor(4, 0), QColor(Qt::red));
}
