// CombineTransform: the product of two affine transforms, the first applied
// first.
#include <windows.h>

BOOL WINAPI CombineTransform(LPXFORM lpxfOut, const XFORM *lpxf1, const XFORM *lpxf2)
{
    if (lpxfOut == nullptr || lpxf1 == nullptr || lpxf2 == nullptr)
        return FALSE;
    // Both inputs are read before anything is written: the result may be
    // one of them.
    const XFORM a = *lpxf1;
    const XFORM b = *lpxf2;
    lpxfOut->eM11 = a.eM11 * b.eM11 + a.eM12 * b.eM21;
    lpxfOut->eM12 = a.eM11 * b.eM12 + a.eM12 * b.eM22;
    lpxfOut->eM21 = a.eM21 * b.eM11 + a.eM22 * b.eM21;
    lpxfOut->eM22 = a.eM21 * b.eM12 + a.eM22 * b.eM22;
    lpxfOut->eDx = a.eDx * b.eM11 + a.eDy * b.eM21 + b.eDx;
    lpxfOut->eDy = a.eDx * b.eM12 + a.eDy * b.eM22 + b.eDy;
    return TRUE;
}
