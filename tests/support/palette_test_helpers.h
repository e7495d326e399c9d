// Palettes made from lists of colours, and painting a canvas with a brush
// of one colour value, for the colour lookup tests.
#ifndef VORLAN_TESTS_GDI_PALETTE_TEST_HELPERS_H
#define VORLAN_TESTS_GDI_PALETTE_TEST_HELPERS_H

#include <windows.h>

#include "support/dc_test_helpers.h"
#include "support/canvas.h"

#include <initializer_list>

namespace vorlan_test {

HPALETTE PaletteOf(std::initializer_list<COLORREF> colours);

// A logical palette with the given RGB colours, deleted with the object.
class TestPalette : public Scoped<HPALETTE> {
public:
    explicit TestPalette(std::initializer_list<COLORREF> colours) : Scoped(PaletteOf(colours)) {}
};

// Fills the canvas with a fresh solid brush of `colour` and gives the
// pixel at its centre.
COLORREF PaintAndRead(Canvas &canvas, COLORREF colour);

} // namespace vorlan_test

#endif // VORLAN_TESTS_GDI_PALETTE_TEST_HELPERS_H
