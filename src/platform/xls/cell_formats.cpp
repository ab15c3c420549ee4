#include "platform/xls/cell_formats.h"

#include <string>

namespace triaxlab {
namespace {

using U8 = std::uint8_t;
using U16 = std::uint16_t;
using U32 = std::uint32_t;

constexpr U16 kGeneral = 0, kWholeDisplay = 1, kHundredthsDisplay = 2, kTextDisplay = 49, kFirstOwnDisplay = 164;

/// The number of the display format; those that every reader knows have numbers of their own.
constexpr U16 displayOf(int decimals) {
  if (decimals == 0) return kWholeDisplay;
  return decimals == 2 ? kHundredthsDisplay : static_cast<U16>(kFirstOwnDisplay + decimals);
}

void addFonts(RecordBuffer& buffer) {
  constexpr U16 kTwelvePoints = 240, kAutomaticColour = 0x7FFF, kOrdinaryWeight = 400;
  constexpr U8 kChineseLetters = 134;
  constexpr std::u16string_view kName = u"宋体";
  // There is no font of number 4, so the fifth is needed for whoever asks for five.
  for (int i = 0; i < 5; ++i) {
    buffer.begin(Record::Font);
    for (const U16 value : {kTwelvePoints, U16{0}, kAutomaticColour, kOrdinaryWeight, U16{0}}) buffer.put(value);
    for (const U8 value : {U8{0}, U8{0}, kChineseLetters, U8{0}, U8{kName.size()}}) buffer.put(value);
    buffer.putText(kName, true);
    buffer.end();
  }
}

void addDisplayFormats(RecordBuffer& buffer) {
  for (int decimals = 0; decimals <= kMostDecimals; ++decimals) {
    if (displayOf(decimals) < kFirstOwnDisplay) continue;
    const std::u16string text = u"0." + std::u16string(static_cast<std::size_t>(decimals), u'0');
    buffer.begin(Record::Format);
    buffer.put(displayOf(decimals));
    buffer.put(static_cast<U16>(text.size()));
    buffer.putText(text, false);
    buffer.end();
  }
}

void addCellFormat(RecordBuffer& buffer, U16 display, U16 typeAndParent, U8 usedParts) {
  constexpr U8 kBottom = 0x20;
  constexpr U16 kNoPattern = 0x20C0;
  buffer.add(Record::ExtendedFormat, U16{0}, display, typeAndParent, kBottom, U8{0}, U8{0}, usedParts, U32{0}, U32{0},
             kNoPattern);
}

void addExtendedFormats(RecordBuffer& buffer) {
  constexpr U16 kStyle = 0xFFF5, kCell = 0x0001;  // locked; of the first style
  constexpr U8 kNumberFormatUsed = 0x04, kOnlyNumberFormatUsed = 0xF4;
  for (int i = 0; i < kStyleFormats; ++i)
    addCellFormat(buffer, kGeneral, kStyle, i == 0 ? U8{0} : kOnlyNumberFormatUsed);
  addCellFormat(buffer, kGeneral, kCell, 0);
  addCellFormat(buffer, kTextDisplay, kCell, kNumberFormatUsed);
  for (int decimals = 0; decimals <= kMostDecimals; ++decimals)
    addCellFormat(buffer, displayOf(decimals), kCell, kNumberFormatUsed);
}

void addStyle(RecordBuffer& buffer) {
  constexpr U16 kBuiltInStyle = 0x8000;
  constexpr U8 kNormal = 0, kNoLevel = 0xFF;
  buffer.add(Record::Style, kBuiltInStyle, kNormal, kNoLevel);
}

}  // namespace

void addCellFormats(RecordBuffer& buffer) {
  addFonts(buffer);
  addDisplayFormats(buffer);
  addExtendedFormats(buffer);
  addStyle(buffer);
}

}  // namespace triaxlab
