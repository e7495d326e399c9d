#include <gtest/gtest.h>

#include <windows.h>

#include <gdk/gdk.h>

#include <cstring>
#include <vector>

namespace {

constexpr int kBitmapSize = sizeof(BITMAP);
constexpr int kSectionSize = sizeof(DIBSECTION);

// A BITMAPINFO with room for a full colour table.
struct DibInfo {
    BITMAPINFOHEADER header;
    RGBQUAD colors[256];
};

DibInfo MakeDibInfo(int width, int height, WORD bitCount)
{
    DibInfo info = {};
    info.header.biSize = sizeof(BITMAPINFOHEADER);
    info.header.biWidth = width;
    info.header.biHeight = height;
    info.header.biPlanes = 1;
    info.header.biBitCount = bitCount;
    info.colors[1].rgbRed = 0xFF;
    return info;
}

const BITMAPINFO *AsInfo(const DibInfo &info)
{
    return reinterpret_cast<const BITMAPINFO *>(&info);
}

HPALETTE MakePalette(const std::vector<PALETTEENTRY> &entries)
{
    std::vector<BYTE> block(offsetof(LOGPALETTE, palPalEntry) + entries.size() * sizeof(PALETTEENTRY));
    auto *lp = reinterpret_cast<LOGPALETTE *>(block.data());
    lp->palVersion = 0x300;
    lp->palNumEntries = static_cast<WORD>(entries.size());
    if (!entries.empty())
        std::memcpy(block.data() + offsetof(LOGPALETTE, palPalEntry), entries.data(), block.size() - 4);
    return CreatePalette(lp);
}

} // namespace

TEST(GdiPens, StoredAsGivenAndReadBackWithTheSizeRules)
{
    HPEN pen = CreatePen(PS_DOT, 5, 0x123456);
    EXPECT_EQ(GetObjectType(pen), static_cast<DWORD>(OBJ_PEN));
    EXPECT_EQ(GetObjectW(pen, 0, nullptr), 16);
    LOGPEN lp[2];
    std::memset(lp, 0xAB, sizeof lp);
    EXPECT_EQ(GetObjectW(pen, 15, lp), 0);
    EXPECT_EQ(GetObjectA(pen, sizeof lp, lp), static_cast<int>(sizeof lp)) << "the caller's size comes back";
    EXPECT_EQ(lp[0].lopnStyle, static_cast<UINT>(PS_DOT));
    EXPECT_EQ(lp[0].lopnWidth.x, 5);
    EXPECT_EQ(lp[0].lopnWidth.y, 5);
    EXPECT_EQ(lp[0].lopnColor, 0x123456u);
    EXPECT_EQ(lp[1].lopnStyle, 0xABABABABu) << "the copy stops at the record's end";
    EXPECT_EQ(CreatePenIndirect(nullptr), nullptr);
    DeleteObject(pen);
}

TEST(GdiBrushes, EachKindStoresItsLogBrush)
{
    struct Case {
        HBRUSH brush;
        LOGBRUSH expected;
    };
    HGLOBAL packed = GlobalAlloc(GMEM_MOVEABLE, 64);
    const Case cases[] = {
        {CreateSolidBrush(0x0D102030), {BS_SOLID, 0x0D102030, 0}},
        {CreateHatchBrush(HS_CROSS, 0x445566), {BS_HATCHED, 0x445566, HS_CROSS}},
        {CreateDIBPatternBrush(packed, DIB_PAL_COLORS),
         {BS_DIBPATTERN, DIB_PAL_COLORS, reinterpret_cast<ULONG_PTR>(packed)}},
    };
    for (const Case &c : cases) {
        EXPECT_EQ(GetObjectType(c.brush), static_cast<DWORD>(OBJ_BRUSH));
        EXPECT_EQ(GetObjectW(c.brush, 0, nullptr), static_cast<int>(sizeof(LOGBRUSH)));
        LOGBRUSH lb;
        EXPECT_EQ(GetObjectW(c.brush, sizeof lb - 1, &lb), 0);
        EXPECT_EQ(GetObjectW(c.brush, sizeof lb, &lb), static_cast<int>(sizeof lb));
        EXPECT_EQ(lb.lbStyle, c.expected.lbStyle);
        EXPECT_EQ(lb.lbColor, c.expected.lbColor);
        EXPECT_EQ(lb.lbHatch, c.expected.lbHatch);
        EXPECT_TRUE(DeleteObject(c.brush));
    }
    EXPECT_EQ(GlobalFree(packed), nullptr) << "the brush left the caller's block alone";
    SetLastError(5);
    EXPECT_EQ(CreateBrushIndirect(nullptr), nullptr);
    EXPECT_EQ(GetLastError(), 0u);
    EXPECT_EQ(CreateDIBPatternBrushPt(cases, DIB_RGB_COLORS), nullptr);
}

// The brush owns a copy of the pattern, which dies with the brush.
TEST(GdiBrushes, PatternBrushOutlivesItsSourceBitmapAlsoOneWithoutBits)
{
    const BYTE bits[16] = {0x81, 0, 0x42, 0, 0x24, 0, 0x18, 0, 0x18, 0, 0x24, 0, 0x42, 0, 0x81, 0};
    HBITMAP source = CreateBitmap(8, 8, 1, 1, bits);
    HBRUSH brush = CreatePatternBrush(source);
    ASSERT_NE(brush, nullptr);
    LOGBRUSH lb;
    ASSERT_EQ(GetObjectW(brush, sizeof lb, &lb), static_cast<int>(sizeof lb));
    EXPECT_EQ(lb.lbStyle, static_cast<UINT>(BS_PATTERN));
    const HBITMAP copy = reinterpret_cast<HBITMAP>(lb.lbHatch);
    EXPECT_NE(copy, source);
    EXPECT_TRUE(DeleteObject(source));
    BITMAP bm;
    ASSERT_EQ(GetObjectW(copy, sizeof bm, &bm), kBitmapSize);
    EXPECT_EQ(bm.bmWidth, 8);
    EXPECT_EQ(bm.bmHeight, 8);
    EXPECT_EQ(bm.bmBitsPixel, 1);
    ASSERT_NE(bm.bmBits, nullptr);
    EXPECT_EQ(std::memcmp(bm.bmBits, bits, sizeof bits), 0);
    EXPECT_TRUE(DeleteObject(brush));
    EXPECT_EQ(GetObjectType(copy), 0u);

    // A bitmap made without bits has no memory image (its pixels would live
    // in a device's pixmap); reading it back and copying it still work.
    HBITMAP bitmap = CreateBitmap(16, 3, 1, 8, nullptr);
    std::memset(&bm, 0xAB, sizeof bm);
    ASSERT_EQ(GetObjectW(bitmap, sizeof bm, &bm), kBitmapSize);
    EXPECT_EQ(bm.bmBits, nullptr);
    EXPECT_EQ(bm.bmWidthBytes, 16);
    EXPECT_EQ(bm.bmType, 0);
    brush = CreatePatternBrush(bitmap);
    ASSERT_NE(brush, nullptr);
    EXPECT_TRUE(DeleteObject(bitmap));
    ASSERT_EQ(GetObjectW(brush, sizeof lb, &lb), static_cast<int>(sizeof lb));
    ASSERT_EQ(GetObjectW(reinterpret_cast<HBITMAP>(lb.lbHatch), sizeof bm, &bm), kBitmapSize);
    EXPECT_EQ(bm.bmWidth, 16);
    EXPECT_EQ(bm.bmHeight, 3);
    EXPECT_EQ(bm.bmBitsPixel, 8);
    EXPECT_EQ(bm.bmBits, nullptr);
    EXPECT_TRUE(DeleteObject(brush));
}

TEST(GdiFonts, WideFontIsKeptWholeAndNarrowedOnRequest)
{
    LOGFONTW lf = {};
    lf.lfHeight = -17;
    lf.lfWeight = FW_BOLD;
    lf.lfItalic = 1;
    lf.lfCharSet = 2;
    const char face[] = "Sans Serif";
    for (size_t i = 0; i < sizeof face; ++i)
        lf.lfFaceName[i] = face[i];
    HFONT font = CreateFontIndirectW(&lf);
    EXPECT_EQ(GetObjectType(font), static_cast<DWORD>(OBJ_FONT));
    EXPECT_EQ(GetObjectW(font, 0, nullptr), 92);
    LOGFONTW back;
    EXPECT_EQ(GetObjectW(font, 91, &back), 0);
    EXPECT_EQ(GetObjectW(font, 92, &back), 92);
    EXPECT_EQ(std::memcmp(&back, &lf, sizeof lf), 0);
    EXPECT_EQ(GetObjectA(font, 0, nullptr), 60);
    LOGFONTA narrow;
    EXPECT_EQ(GetObjectA(font, 59, &narrow), 0);
    EXPECT_EQ(GetObjectA(font, 100, &narrow), 60);
    EXPECT_EQ(narrow.lfHeight, -17);
    EXPECT_EQ(narrow.lfItalic, 1);
    EXPECT_EQ(narrow.lfCharSet, 2);
    EXPECT_STREQ(narrow.lfFaceName, face);
    SetLastError(0);
    EXPECT_EQ(CreateFontIndirectW(nullptr), nullptr);
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_INVALID_PARAMETER));
    EXPECT_EQ(CreateFontIndirectA(nullptr), nullptr);
    DeleteObject(font);
}

// Faces are cut at 31 characters; a missing face is "Luxi Sans".
TEST(GdiFonts, NarrowCallsConvertAndCutTheFace)
{
    LOGFONTA lf = {};
    lf.lfWeight = 700;
    std::memset(lf.lfFaceName, 'x', LF_FACESIZE); // no terminator at all
    HFONT cut = CreateFontIndirectA(&lf);
    HFONT unnamed = CreateFontA(10, 0, 0, 0, 400, 0, 0, 0, 0, 0, 0, 0, 0, nullptr);
    const WCHAR wideFace[] = {'W', 'i', 'd', 'e', 0};
    HFONT wide = CreateFontW(11, 2, 0, 0, 300, 1, 0, 0, 0, 0, 0, 0, 0, wideFace);
    LOGFONTW w;
    ASSERT_EQ(GetObjectW(cut, sizeof w, &w), 92);
    EXPECT_EQ(w.lfWeight, 700);
    for (int i = 0; i < 31; ++i)
        EXPECT_EQ(w.lfFaceName[i], 'x');
    EXPECT_EQ(w.lfFaceName[31], 0);
    LOGFONTA a;
    ASSERT_EQ(GetObjectA(unnamed, sizeof a, &a), 60);
    EXPECT_STREQ(a.lfFaceName, "Luxi Sans");
    ASSERT_EQ(GetObjectA(wide, sizeof a, &a), 60);
    EXPECT_EQ(a.lfWidth, 2);
    EXPECT_EQ(a.lfItalic, 1);
    EXPECT_STREQ(a.lfFaceName, "Wide");
    for (HFONT font : {cut, unnamed, wide})
        EXPECT_TRUE(DeleteObject(font));
}

TEST(GdiBitmaps, CreateBitmapSizesDepthsAndRows)
{
    BITMAP bm;
    HBITMAP tiny = CreateBitmap(0, 0, 1, 0, nullptr);
    ASSERT_EQ(GetObjectW(tiny, sizeof bm, &bm), kBitmapSize);
    EXPECT_EQ(bm.bmWidth, 1);
    EXPECT_EQ(bm.bmHeight, 1);
    EXPECT_EQ(bm.bmBitsPixel, 1);
    EXPECT_EQ(bm.bmWidthBytes, 2);
    EXPECT_EQ(bm.bmBits, nullptr);
    EXPECT_EQ(CreateBitmap(8, 8, 1, 2, nullptr), nullptr);
    EXPECT_EQ(CreateBitmap(8, 8, 1, 15, nullptr), nullptr);
    EXPECT_EQ(CreateBitmap(-8, 8, 1, 1, nullptr), nullptr);
    // Rows are padded to 16 bits.
    const struct {
        int width;
        UINT depth;
        LONG rowBytes;
    } rows[] = {{17, 1, 4}, {5, 4, 4}, {3, 24, 10}, {3, 0, 2}};
    for (const auto &row : rows) {
        HBITMAP bitmap = CreateBitmap(row.width, 2, 1, row.depth, nullptr);
        ASSERT_EQ(GetObjectW(bitmap, sizeof bm, &bm), kBitmapSize);
        EXPECT_EQ(bm.bmWidthBytes, row.rowBytes) << row.width << "x" << row.depth;
        EXPECT_EQ(bm.bmBitsPixel, row.depth == 0 ? 1 : row.depth);
        DeleteObject(bitmap);
    }
    DeleteObject(tiny);
}

TEST(GdiBitmaps, BitsAreCopiedAndTheSizeRulesHold)
{
    const BYTE bits[12] = {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12};
    HBITMAP bitmap = CreateBitmap(2, 2, 1, 24, bits); // 6 bytes per row
    EXPECT_EQ(GetObjectW(bitmap, 0, nullptr), kBitmapSize);
    EXPECT_EQ(GetObjectW(bitmap, kSectionSize, nullptr), kSectionSize);
    BYTE buffer[200];
    EXPECT_EQ(GetObjectW(bitmap, kBitmapSize - 1, buffer), 0);
    BITMAP bm;
    ASSERT_EQ(GetObjectW(bitmap, sizeof bm, &bm), kBitmapSize);
    ASSERT_NE(bm.bmBits, nullptr);
    EXPECT_NE(bm.bmBits, static_cast<const void *>(bits));
    EXPECT_EQ(std::memcmp(bm.bmBits, bits, sizeof bits), 0);
    std::memset(buffer, 0xAB, sizeof buffer);
    EXPECT_EQ(GetObjectW(bitmap, sizeof buffer, buffer), static_cast<int>(sizeof buffer));
    DIBSECTION ds;
    std::memcpy(&ds, buffer, sizeof ds);
    EXPECT_EQ(ds.dsBm.bmWidth, 2);
    EXPECT_EQ(ds.dsBmih.biSize, 0u) << "a plain bitmap has no header";
    EXPECT_EQ(ds.dshSection, nullptr);
    EXPECT_EQ(buffer[kSectionSize], 0xAB) << "a DIBSECTION and no more is written";
    DeleteObject(bitmap);
}

static unsigned LiveBitmaps()
{
    unsigned count = 0;
    for (unsigned i = 0; i < 65536; ++i)
        count += GetObjectType(reinterpret_cast<HGDIOBJ>(0x70070000ul + i)) != 0;
    return count;
}

TEST(GdiDibSections, BadArgumentsFailWithInvalidParameterAndLeaveNoObject)
{
    const DibInfo info = MakeDibInfo(4, 4, 8);
    const unsigned before = LiveBitmaps();
    void *bits = reinterpret_cast<void *>(1);
    SetLastError(0);
    EXPECT_EQ(CreateDIBSection(nullptr, nullptr, DIB_RGB_COLORS, &bits, nullptr, 0), nullptr);
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_INVALID_PARAMETER));
    EXPECT_EQ(bits, nullptr);
    SetLastError(0);
    EXPECT_EQ(CreateDIBSection(nullptr, AsInfo(info), DIB_RGB_COLORS, nullptr, nullptr, 0), nullptr);
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_INVALID_PARAMETER));
    for (const DibInfo &bad : {MakeDibInfo(0, 4, 8), MakeDibInfo(4, 0, 8), MakeDibInfo(-4, 4, 8),
                               MakeDibInfo(4, 4, 3), MakeDibInfo(0x7FFFFFFF, 0x7FFFFFFF, 32)}) {
        SetLastError(0);
        EXPECT_EQ(CreateDIBSection(nullptr, AsInfo(bad), DIB_RGB_COLORS, &bits, nullptr, 0), nullptr);
        EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_INVALID_PARAMETER));
    }
    // A section handle that locks to nothing: the bitmap object made for it
    // is destroyed.
    SetLastError(0);
    bits = reinterpret_cast<void *>(1);
    EXPECT_EQ(CreateDIBSection(nullptr, AsInfo(info), DIB_RGB_COLORS, &bits, reinterpret_cast<HANDLE>(0x7754), 0),
              nullptr);
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_INVALID_PARAMETER));
    EXPECT_EQ(bits, nullptr);
    EXPECT_EQ(LiveBitmaps(), before);
}

// The BITMAP has the screen's depth, the header the depth of the block.
TEST(GdiDibSections, OwnBlockWithTheHeaderOfTheMemory)
{
    const DibInfo info = MakeDibInfo(10, -5, 8);
    void *bits = nullptr;
    HBITMAP section = CreateDIBSection(nullptr, AsInfo(info), DIB_RGB_COLORS, &bits, nullptr, 0);
    ASSERT_NE(section, nullptr);
    ASSERT_NE(bits, nullptr);
    std::memset(bits, 0x5A, 60); // the whole image: 12 bytes by 5 rows
    DIBSECTION ds;
    ASSERT_EQ(GetObjectW(section, sizeof ds, &ds), kSectionSize);
    const int depth = gdk_visual_get_system()->depth;
    EXPECT_EQ(ds.dsBm.bmBitsPixel, depth);
    EXPECT_EQ(ds.dsBm.bmWidthBytes, (depth * 10 + 31) / 32 * 4);
    EXPECT_EQ(ds.dsBm.bmHeight, -5);
    EXPECT_EQ(ds.dsBm.bmBits, bits);
    EXPECT_EQ(ds.dsBmih.biBitCount, 8);
    EXPECT_EQ(ds.dsBmih.biSizeImage, 60u);
    EXPECT_EQ(ds.dsBmih.biClrUsed, 256u);
    EXPECT_EQ(ds.dsBmih.biClrImportant, 256u);
    EXPECT_EQ(ds.dshSection, nullptr);
    DeleteObject(section);
}

// The bits sit in the locked section handle; deletion gives the lock back.
TEST(GdiDibSections, SectionHandleWithOffset)
{
    HGLOBAL memory = GlobalAlloc(GMEM_MOVEABLE | GMEM_ZEROINIT, 4096);
    const DibInfo info = MakeDibInfo(16, 16, 32);
    void *bits = nullptr;
    HBITMAP section = CreateDIBSection(nullptr, AsInfo(info), DIB_RGB_COLORS, &bits, memory, 64);
    ASSERT_NE(section, nullptr);
    BYTE *base = static_cast<BYTE *>(GlobalLock(memory));
    GlobalUnlock(memory);
    EXPECT_EQ(bits, base + 64);
    EXPECT_EQ(GlobalFlags(memory) & GMEM_LOCKCOUNT, 1u);
    DIBSECTION ds;
    ASSERT_EQ(GetObjectW(section, sizeof ds, &ds), kSectionSize);
    EXPECT_EQ(ds.dshSection, memory);
    EXPECT_EQ(ds.dsOffset, 64u);
    EXPECT_EQ(ds.dsBmih.biClrUsed, 0u);
    EXPECT_TRUE(DeleteObject(section));
    EXPECT_EQ(GlobalFlags(memory) & GMEM_LOCKCOUNT, 0u);
    GlobalFree(memory);
}

TEST(GdiPalettes, EntriesAreKeptUpTo1024)
{
    std::vector<PALETTEENTRY> entries(2000);
    for (size_t i = 0; i < entries.size(); ++i)
        entries[i] = {static_cast<BYTE>(i), static_cast<BYTE>(i >> 8), 7, 0};
    HPALETTE palette = MakePalette(entries);
    EXPECT_EQ(GetObjectType(palette), static_cast<DWORD>(OBJ_PAL));
    WORD count = 0;
    EXPECT_EQ(GetObjectW(palette, 2, &count), 2);
    EXPECT_EQ(count, 1024);
    EXPECT_EQ(GetObjectW(palette, 1, &count), 0);
    EXPECT_EQ(GetObjectW(palette, 1, nullptr), 2);
    PALETTEENTRY out[10] = {};
    EXPECT_EQ(GetPaletteEntries(palette, 1020, 10, out), 4u);
    EXPECT_EQ(out[3].peRed, 1023 & 0xFF);
    EXPECT_EQ(out[3].peGreen, 1023 >> 8);
    EXPECT_EQ(GetPaletteEntries(palette, 1024, 10, out), 0u);
    EXPECT_EQ(GetPaletteEntries(palette, 0, 0, out), 0u);
    EXPECT_EQ(GetPaletteEntries(palette, 0, 5, nullptr), 1024u);
    EXPECT_EQ(CreatePalette(nullptr), nullptr);
    EXPECT_EQ(MakePalette({}), nullptr);
    DeleteObject(palette);
}

TEST(GdiPalettes, NearestIndexPrefersExactThenFirstNearest)
{
    HPALETTE palette = MakePalette({{10, 0, 0, 0}, {0, 10, 0, 0}, {5, 5, 0, 0}, {5, 5, 0, 0}});
    EXPECT_EQ(GetNearestPaletteIndex(palette, RGB(5, 0, 0)), 0u) << "entries 0 and 2 tie";
    EXPECT_EQ(GetNearestPaletteIndex(palette, RGB(5, 5, 0)), 2u);
    EXPECT_EQ(GetNearestPaletteIndex(palette, 0x02000505), 2u) << "the top byte is ignored";
    EXPECT_EQ(GetNearestPaletteIndex(palette, RGB(255, 255, 255)), 0u);
    EXPECT_EQ(GetNearestPaletteIndex(palette, RGB(6, 4, 0)), 2u) << "nearest by the sum of the differences";
    EXPECT_EQ(GetNearestPaletteIndex(nullptr, 0), 0u);
    DeleteObject(palette);
}

// Between a BITMAP and a DIBSECTION the caller gets the head of the record:
// the BITMAP first, never more bytes than asked for.
TEST(GdiBitmaps, SizesBetweenBitmapAndSectionGetTheRecordHead)
{
    const DibInfo info = MakeDibInfo(4, 4, 24);
    void *bits = nullptr;
    HBITMAP section = CreateDIBSection(nullptr, AsInfo(info), DIB_RGB_COLORS, &bits, nullptr, 0);
    ASSERT_NE(section, nullptr);
    for (int cb : {kBitmapSize, kBitmapSize + 1, kSectionSize - 1}) {
        BYTE buffer[kSectionSize + 8];
        std::memset(buffer, 0xAB, sizeof buffer);
        EXPECT_EQ(GetObjectW(section, cb, buffer), cb);
        BITMAP bm;
        std::memcpy(&bm, buffer, sizeof bm);
        EXPECT_EQ(bm.bmWidth, 4) << cb;
        EXPECT_EQ(bm.bmBits, bits) << cb;
        EXPECT_EQ(buffer[cb], 0xAB) << cb;
    }
    EXPECT_TRUE(DeleteObject(section));
}
