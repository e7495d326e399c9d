// A memory context with a bitmap of the screen's depth selected, painted
// white, for tests that read back what drawing left.
#ifndef VORLAN_TESTS_GDI_SCREEN_CANVAS_H
#define VORLAN_TESTS_GDI_SCREEN_CANVAS_H

#include <windows.h>

#include <initializer_list>
#include <string>

namespace vorlan_test {

constexpr COLORREF kWhite = RGB(255, 255, 255);
constexpr COLORREF kBlack = RGB(0, 0, 0);
constexpr COLORREF kRed = RGB(255, 0, 0);
constexpr COLORREF kGreen = RGB(0, 255, 0);
constexpr COLORREF kBlue = RGB(0, 0, 255);

class Canvas {
public:
    // `depth` 0 takes the screen's.
    explicit Canvas(int width = 40, int height = 40, int depth = 0);
    ~Canvas();
    Canvas(const Canvas &) = delete;
    Canvas &operator=(const Canvas &) = delete;

    HDC hdc() const { return m_hdc; }
    operator HDC() const { return m_hdc; }
    HBITMAP bitmap() const { return m_bitmap; }
    int width() const { return m_width; }
    int height() const { return m_height; }

    void Clear(COLORREF color = kWhite);
    COLORREF At(int x, int y) const { return GetPixel(m_hdc, x, y); }
    // Row `y` from x0 to x1 inclusive as characters: '#' where the pixel
    // has `ink`, '.' where it doesn't.
    std::string Row(int y, int x0, int x1, COLORREF ink) const;
    std::string Column(int x, int y0, int y1, COLORREF ink) const;
    // Pixels of colour `ink` in the whole canvas.
    int Count(COLORREF ink) const;
    // The first of `points` whose pixel isn't `ink`, as "(x,y)", or "".
    std::string NotAll(COLORREF ink, std::initializer_list<POINT> points) const;

    // Selects a new pen or brush and deletes the one it replaced when that
    // was made here; the last ones go with the canvas.
    void UsePen(HPEN pen);
    void UseBrush(HBRUSH brush);

private:
    int m_width;
    int m_height;
    HDC m_hdc;
    HBITMAP m_bitmap;
    HGDIOBJ m_oldBitmap;
    HPEN m_pen = nullptr;
    HBRUSH m_brush = nullptr;
};

} // namespace vorlan_test

#endif // VORLAN_TESTS_GDI_SCREEN_CANVAS_H
