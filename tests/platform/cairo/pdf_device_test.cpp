#include <gmock/gmock.h>

#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <vector>

#include "common/user_error.h"
#include "platform/pdf_device.h"
#include "support/full_disk.h"
#include "support/temporary_folder.h"

namespace triaxlab {
namespace {

using ::testing::HasSubstr;
using testing::TemporaryFolder;

const DocumentInfo kInformation{.title = "三轴", .subject = "2024-018", .created = {2024, 5, 6}};

std::size_t countOf(const std::string& text, const std::string& what) {
  std::size_t count = 0;
  for (std::size_t at = text.find(what); at != std::string::npos; at = text.find(what, at + 1)) ++count;
  return count;
}

std::string withoutBlanks(std::string text) {
  std::erase_if(text, [](char c) { return c == ' ' || c == '\n'; });
  return text;
}

struct PdfDevice : ::testing::Test {
  TemporaryFolder folder;
  std::filesystem::path file = folder.path() / "pages.pdf";

  /// What a program tells of the file; empty when it isn't installed.
  std::string told(const std::string& program, const std::string& behind = "") const {
    const std::string command = program + " '" + file.string() + "' " + behind;
    if (std::system((command + " >'" + (folder / "told").string() + "' 2>/dev/null").c_str()) != 0) return {};
    return folder.read("told");
  }
  std::string written() const { return folder.read("pages.pdf"); }

  template <class Draw>
  void makePages(int count, Draw draw) {
    const auto device = makePdfDevice(file, kInformation);
    for (int page = 1; page <= count; ++page) {
      draw(device->beginPage(kA4));
      device->bookmark("ZK" + std::to_string(page));
      device->endPage();
    }
    device->finish();
  }
};

void drawText(DrawingSurface& surface) { surface.text({1000, 1000}, "三轴试验", {}, Colour::Black); }

TEST_F(PdfDevice, WritesTheFileWholeAtTheEnd) {
  const auto device = makePdfDevice(file, {});
  drawText(device->beginPage(kA4));
  device->endPage();
  EXPECT_FALSE(std::filesystem::exists(file));
  device->beginPage(kA3SideBySide);
  device->endPage();
  device->finish();
  EXPECT_TRUE(written().starts_with("%PDF-"));
  EXPECT_TRUE(written().ends_with("%%EOF\n"));
  // 20 twips are a point.
  EXPECT_EQ(countOf(written(), "/MediaBox [ 0 0 595.3 841.9 ]"), 1U);
  EXPECT_EQ(countOf(written(), "/MediaBox [ 0 0 1190.5 842.05 ]"), 1U);
}

TEST_F(PdfDevice, LeavesAnOldFileAloneUntilTheNewOneStands) {
  folder.write("pages.pdf", "old");
  {
    const auto device = makePdfDevice(file, {});
    drawText(device->beginPage(kA4));
    device->endPage();
    device->beginPage(kA4);
  }
  EXPECT_EQ(written(), "old");
  EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder.path()), {}), 1) << "nothing lies beside it";
}

TEST_F(PdfDevice, NamesTheFileThatCantBeWritten) {
  file = folder.path() / "missing" / "pages.pdf";
  try {
    makePages(1, drawText);
    FAIL() << "no error";
  } catch (const UserError& error) {
    EXPECT_THAT(error.what(), HasSubstr("pages.pdf"));
  }
}

TEST_F(PdfDevice, ADiskThatTakesNotOneByteIsTold) {
  folder.write("pages.pdf", "old");
  const testing::FullDisk disk(0);
  try {
    makePages(1, drawText);
    FAIL() << "no error";
  } catch (const UserError& error) {
    EXPECT_THAT(error.what(), HasSubstr("pages.pdf"));
  }
  EXPECT_EQ(written(), "old");
}

TEST_F(PdfDevice, TheSamePagesMakeTheSameBytes) {
  makePages(3, drawText);
  const std::string first = written();
  makePages(3, drawText);
  EXPECT_EQ(written(), first);
}

TEST_F(PdfDevice, TellsWhatItIsAndWhereEachSampleStands) {
  makePages(2, drawText);
  EXPECT_THAT(written(), HasSubstr("/Title <FEFF4E098F74>"));
  EXPECT_THAT(written(), HasSubstr("/Subject (2024-018)"));
  EXPECT_THAT(written(), HasSubstr("20240506)"));
  EXPECT_THAT(written(), HasSubstr("/Creator (triaxlab "));
  EXPECT_THAT(written(), HasSubstr("/Type /Outlines"));
  const std::size_t first = written().find("/Title (ZK1)"), second = written().find("/Title (ZK2)");
  EXPECT_LT(first, second);
  EXPECT_NE(second, std::string::npos);
}

TEST_F(PdfDevice, TextsAreFoundAsTheyWereDrawn) {
  makePages(1, [](DrawingSurface& surface) {
    surface.text({3000, 500}, "三  轴", {.size = 19, .bold = true}, Colour::Black);
    surface.text({1000, 2000}, "σ1′-σ3′ 峰值±5%", {}, Colour::Blue);
    surface.text({1000, 3000}, "水工大土样", {.stretch = 0.7}, Colour::Black);
    surface.text({1000, 6000}, "孔压(kPa)", {.name = kSongRotated}, Colour::Black, true);
    surface.text({5000, 3000}, "12.5", {.name = kArialNarrow, .size = 9}, Colour::Black);
  });
  const std::string texts = told("pdftotext -raw", "-");
  if (texts.empty()) GTEST_SKIP() << "poppler-utils is not installed: the texts were not read";
  for (const char* const text : {"三 轴", "σ1′-σ3′ 峰值±5%", "水工大土样", "孔压(kPa)", "12.5"})
    EXPECT_EQ(countOf(texts, text), 1U) << text << " in\n" << texts;
}

// A mark of 7 of 10 points is 70 wide and stands in a gap of 100: "( cm" is 400 wide, "(σ" 300, "(σ ′-σ" 900.
TEST_F(PdfDevice, MarksInGapsAreReadWhereTheyStand) {
  const Font small{.size = 7};
  makePages(1, [&](DrawingSurface& surface) {
    surface.text({1000, 2000}, "( cm  )", {.size = 10}, Colour::Black);
    surface.text({1400, 1960}, "2", small, Colour::Black);
    surface.text({1000, 4000}, "(σ ′-σ ′)", {.size = 10}, Colour::Black);
    surface.text({1300, 4080}, "1", small, Colour::Black);
    surface.text({1900, 4080}, "3", small, Colour::Black);
    surface.text({1000, 8000}, "a b", {.name = kSongRotated, .size = 10}, Colour::Black, true);
    surface.text({1080, 7900}, "5", {.name = kSongRotated, .size = 7}, Colour::Black, true);
  });
  const std::string texts = told("pdftotext -raw", "-");
  if (texts.empty()) GTEST_SKIP() << "poppler-utils is not installed: the texts were not read";
  for (const char* const text : {"(cm2)", "(σ1′-σ3′)", "a5b"})
    EXPECT_EQ(countOf(withoutBlanks(texts), text), 1U) << text << " in\n" << texts;
}

TEST_F(PdfDevice, ASmallerTextElsewhereStandsForItself) {
  makePages(1, [](DrawingSurface& surface) {
    surface.text({1000, 2000}, "( cm  )", {.size = 10}, Colour::Black);
    surface.text({1400, 2300}, "22", {.size = 7}, Colour::Black);
    surface.text({5000, 2000}, "qu", {.size = 7}, Colour::Black);
  });
  const std::string texts = told("pdftotext -raw", "-");
  if (texts.empty()) GTEST_SKIP() << "poppler-utils is not installed: the texts were not read";
  EXPECT_EQ(countOf(texts, "( cm )"), 1U) << texts;
}

TEST_F(PdfDevice, HasThePartsOfItsFontsThatItUses) {
  makePages(1, [](DrawingSurface& surface) {
    surface.text({1000, 1000}, "三轴", {}, Colour::Black);
    surface.text({1000, 2000}, "三轴", {.bold = true}, Colour::Black);
    surface.text({1000, 3000}, "12", {.name = kArialNarrow}, Colour::Black);
  });
  const std::string fonts = told("pdffonts");
  if (fonts.empty()) GTEST_SKIP() << "poppler-utils is not installed: the fonts were not listed";
  const std::size_t used = countOf(fonts, " yes yes yes ");
  EXPECT_GE(used, 1U) << fonts;
  EXPECT_LE(used, 3U) << fonts;
  EXPECT_EQ(countOf(fonts, "\n"), used + 2) << "every font is embedded as a part, and its texts can be read\n" << fonts;
  // A Chinese font alone has ten megabytes.
  EXPECT_LT(written().size(), 10000U);
}

TEST_F(PdfDevice, APlaceThatIsNoNumberIsFarOutside) {
  const auto pageWith = [this](double place) {
    makePages(1, [place](DrawingSurface& surface) {
      surface.line({place, 0}, {100, 100}, {});
      surface.text({place, 100}, "1", {}, Colour::Black);
    });
    return written();
  };
  EXPECT_EQ(pageWith(std::nan("")), pageWith(-1e300));
}

TEST_F(PdfDevice, PointsThatNobodySeesTakeNoPlace) {
  const auto sizeOf = [&](std::size_t every) {
    makePages(1, [every](DrawingSurface& surface) {
      std::vector<Point> line;
      for (std::size_t i = 0; i <= 3000; i += every)
        line.push_back({1000 + static_cast<double>(i), 3000 + static_cast<double>(i)});
      surface.polyline(line, {});
    });
    return written().size();
  };
  EXPECT_EQ(sizeOf(1), sizeOf(3000));
}

}  // namespace
}  // namespace triaxlab
