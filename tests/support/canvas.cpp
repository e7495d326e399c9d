#include "support/canvas.h"

namespace vorlan_test {

Canvas::Canvas(int width, int height, int depth)
    : m_width(width), m_height(height), m_hdc(CreateCompatibleDC(nullptr)), m_bitmap(nullptr), m_oldBitmap(nullptr)
{
    if (depth == 0)
        depth = GetDeviceCaps(m_hdc, BITSPIXEL);
    m_bitmap = CreateBitmap(width, height, 1, depth, nullptr);
    m_oldBitmap = SelectObject(m_hdc, m_bitmap);
    Clear();
}

Canvas::~Canvas()
{
    SelectObject(m_hdc, GetStockObject(BLACK_PEN));
    SelectObject(m_hdc, GetStockObject(WHITE_BRUSH));
    SelectObject(m_hdc, m_oldBitmap);
    DeleteDC(m_hdc);
    DeleteObject(m_bitmap);
    if (m_pen != nullptr)
        DeleteObject(m_pen);
    if (m_brush != nullptr)
        DeleteObject(m_brush);
}

void Canvas::Clear(COLORREF color)
{
    if (color == kWhite || color == kBlack) {
        PatBlt(m_hdc, 0, 0, m_width, m_height, color == kWhite ? WHITENESS : BLACKNESS);
        return;
    }
    HBRUSH brush = CreateSolidBrush(color);
    HGDIOBJ old = SelectObject(m_hdc, brush);
    PatBlt(m_hdc, 0, 0, m_width, m_height, PATCOPY);
    SelectObject(m_hdc, old);
    DeleteObject(brush);
}

std::string Canvas::Row(int y, int x0, int x1, COLORREF ink) const
{
    std::string row;
    for (int x = x0; x <= x1; ++x)
        row += At(x, y) == ink ? '#' : '.';
    return row;
}

std::string Canvas::Column(int x, int y0, int y1, COLORREF ink) const
{
    std::string column;
    for (int y = y0; y <= y1; ++y)
        column += At(x, y) == ink ? '#' : '.';
    return column;
}

int Canvas::Count(COLORREF ink) const
{
    int count = 0;
    for (int y = 0; y < m_height; ++y)
        for (int x = 0; x < m_width; ++x)
            count += At(x, y) == ink ? 1 : 0;
    return count;
}

void Canvas::UsePen(HPEN pen)
{
    SelectObject(m_hdc, pen);
    if (m_pen != nullptr)
        DeleteObject(m_pen);
    m_pen = pen;
}

void Canvas::UseBrush(HBRUSH brush)
{
    SelectObject(m_hdc, brush);
    if (m_brush != nullptr)
        DeleteObject(m_brush);
    m_brush = brush;
}

std::string Canvas::NotAll(COLORREF ink, std::initializer_list<POINT> points) const
{
    for (const POINT &p : points) {
        if (At(p.x, p.y) != ink)
            return "(" + std::to_string(p.x) + "," + std::to_string(p.y) + ")";
    }
    return std::string();
}

} // namespace vorlan_test
