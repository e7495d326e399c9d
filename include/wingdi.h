/*
 * wingdi.h - graphics device interface: device contexts, drawing objects,
 * fonts and text, bitmaps and DIBs, palettes, regions, paths, old-style
 * metafiles and printing.
 *
 * Structures have their Win32 layout on ILP32 and the Win64 layout on LP64;
 * every one is size-checked below its definition.
 */
#ifndef VORLAN_WINGDI_H
#define VORLAN_WINGDI_H

#include "windef.h"

/* ---- Stock objects (GetStockObject) ---------------------------------- */
#define WHITE_BRUSH 0
#define LTGRAY_BRUSH 1
#define GRAY_BRUSH 2
#define DKGRAY_BRUSH 3
#define BLACK_BRUSH 4
#define NULL_BRUSH 5
#define HOLLOW_BRUSH NULL_BRUSH
#define WHITE_PEN 6
#define BLACK_PEN 7
#define NULL_PEN 8
#define OEM_FIXED_FONT 10
#define ANSI_FIXED_FONT 11
#define ANSI_VAR_FONT 12
#define SYSTEM_FONT 13
#define DEVICE_DEFAULT_FONT 14
#define DEFAULT_PALETTE 15
#define SYSTEM_FIXED_FONT 16
#define DEFAULT_GUI_FONT 17
#define DC_BRUSH 18
#define DC_PEN 19
#define STOCK_LAST 19

/* ---- Object types (GetObjectType, GetCurrentObject) ------------------ */
#define OBJ_PEN 1
#define OBJ_BRUSH 2
#define OBJ_DC 3
#define OBJ_METADC 4
#define OBJ_PAL 5
#define OBJ_FONT 6
#define OBJ_BITMAP 7
#define OBJ_REGION 8
#define OBJ_METAFILE 9
#define OBJ_MEMDC 10
#define OBJ_EXTPEN 11
#define OBJ_ENHMETADC 12
#define OBJ_ENHMETAFILE 13
#define OBJ_COLORSPACE 14

/* ---- Error returns --------------------------------------------------- */
#define GDI_ERROR 0xFFFFFFFF
#define CLR_INVALID 0xFFFFFFFF

/* ---- Region complexity and combination modes ------------------------- */
#define ERROR 0
#define NULLREGION 1
#define SIMPLEREGION 2
#define COMPLEXREGION 3
#define RGN_ERROR ERROR
#define RGN_AND 1
#define RGN_OR 2
#define RGN_XOR 3
#define RGN_DIFF 4
#define RGN_COPY 5
#define RGN_MIN RGN_AND
#define RGN_MAX RGN_COPY
#define RDH_RECTANGLES 1

/* ---- Ternary raster operations (BitBlt, StretchBlt, PatBlt) ---------- */
#define SRCCOPY 0x00CC0020
#define SRCPAINT 0x00EE0086
#define SRCAND 0x008800C6
#define SRCINVERT 0x00660046
#define SRCERASE 0x00440328
#define NOTSRCCOPY 0x00330008
#define NOTSRCERASE 0x001100A6
#define MERGECOPY 0x00C000CA
#define MERGEPAINT 0x00BB0226
#define PATCOPY 0x00F00021
#define PATPAINT 0x00FB0A09
#define PATINVERT 0x005A0049
#define DSTINVERT 0x00550009
#define BLACKNESS 0x00000042
#define WHITENESS 0x00FF0062
#define NOMIRRORBITMAP 0x80000000
#define CAPTUREBLT 0x40000000
#define MAKEROP4(fore, back) ((DWORD)((((back) << 8) & 0xFF000000) | (fore)))

/* ---- Binary raster operations (SetROP2) ------------------------------ */
#define R2_BLACK 1
#define R2_NOTMERGEPEN 2
#define R2_MASKNOTPEN 3
#define R2_NOTCOPYPEN 4
#define R2_MASKPENNOT 5
#define R2_NOT 6
#define R2_XORPEN 7
#define R2_NOTMASKPEN 8
#define R2_MASKPEN 9
#define R2_NOTXORPEN 10
#define R2_NOP 11
#define R2_MERGENOTPEN 12
#define R2_COPYPEN 13
#define R2_MERGEPENNOT 14
#define R2_MERGEPEN 15
#define R2_WHITE 16
#define R2_LAST 16

/* ---- Background, fill and stretch modes ------------------------------ */
#define TRANSPARENT 1
#define OPAQUE 2
#define BKMODE_LAST 2
#define ALTERNATE 1
#define WINDING 2
#define POLYFILL_LAST 2
#define BLACKONWHITE 1
#define WHITEONBLACK 2
#define COLORONCOLOR 3
#define HALFTONE 4
#define MAXSTRETCHBLTMODE 4
#define STRETCH_ANDSCANS BLACKONWHITE
#define STRETCH_ORSCANS WHITEONBLACK
#define STRETCH_DELETESCANS COLORONCOLOR
#define STRETCH_HALFTONE HALFTONE
#define FLOODFILLBORDER 0
#define FLOODFILLSURFACE 1
#define AD_COUNTERCLOCKWISE 1
#define AD_CLOCKWISE 2

/* ---- Text alignment (SetTextAlign) ----------------------------------- */
#define TA_NOUPDATECP 0
#define TA_UPDATECP 1
#define TA_LEFT 0
#define TA_RIGHT 2
#define TA_CENTER 6
#define TA_TOP 0
#define TA_BOTTOM 8
#define TA_BASELINE 24
#define TA_RTLREADING 256
#define TA_MASK (TA_BASELINE + TA_CENTER + TA_UPDATECP + TA_RTLREADING)
#define VTA_BASELINE TA_BASELINE
#define VTA_LEFT TA_BOTTOM
#define VTA_RIGHT TA_TOP
#define VTA_CENTER TA_CENTER
#define VTA_BOTTOM TA_RIGHT
#define VTA_TOP TA_LEFT

/* ---- ExtTextOut options ---------------------------------------------- */
#define ETO_OPAQUE 0x0002
#define ETO_CLIPPED 0x0004
#define ETO_GLYPH_INDEX 0x0010
#define ETO_RTLREADING 0x0080
#define ETO_NUMERICSLOCAL 0x0400
#define ETO_NUMERICSLATIN 0x0800
#define ETO_IGNORELANGUAGE 0x1000
#define ETO_PDY 0x2000

/* ---- Coordinate spaces ----------------------------------------------- */
#define MM_TEXT 1
#define MM_LOMETRIC 2
#define MM_HIMETRIC 3
#define MM_LOENGLISH 4
#define MM_HIENGLISH 5
#define MM_TWIPS 6
#define MM_ISOTROPIC 7
#define MM_ANISOTROPIC 8
#define MM_MIN MM_TEXT
#define MM_MAX MM_ANISOTROPIC
#define MM_MAX_FIXEDSCALE MM_TWIPS
#define ABSOLUTE 1
#define RELATIVE 2
#define GM_COMPATIBLE 1
#define GM_ADVANCED 2
#define GM_LAST 2
#define MWT_IDENTITY 1
#define MWT_LEFTMULTIPLY 2
#define MWT_RIGHTMULTIPLY 3
#define MWT_MIN MWT_IDENTITY
#define MWT_MAX MWT_RIGHTMULTIPLY
#define LAYOUT_RTL 0x00000001
#define LAYOUT_BTT 0x00000002
#define LAYOUT_VBH 0x00000004
#define LAYOUT_ORIENTATIONMASK (LAYOUT_RTL | LAYOUT_BTT | LAYOUT_VBH)
#define LAYOUT_BITMAPORIENTATIONPRESERVED 0x00000008

/* ---- Pens ------------------------------------------------------------ */
#define PS_SOLID 0
#define PS_DASH 1
#define PS_DOT 2
#define PS_DASHDOT 3
#define PS_DASHDOTDOT 4
#define PS_NULL 5
#define PS_INSIDEFRAME 6
#define PS_USERSTYLE 7
#define PS_ALTERNATE 8
#define PS_STYLE_MASK 0x0000000F
#define PS_ENDCAP_ROUND 0x00000000
#define PS_ENDCAP_SQUARE 0x00000100
#define PS_ENDCAP_FLAT 0x00000200
#define PS_ENDCAP_MASK 0x00000F00
#define PS_JOIN_ROUND 0x00000000
#define PS_JOIN_BEVEL 0x00001000
#define PS_JOIN_MITER 0x00002000
#define PS_JOIN_MASK 0x0000F000
#define PS_COSMETIC 0x00000000
#define PS_GEOMETRIC 0x00010000
#define PS_TYPE_MASK 0x000F0000

/* ---- Brushes --------------------------------------------------------- */
#define BS_SOLID 0
#define BS_NULL 1
#define BS_HOLLOW BS_NULL
#define BS_HATCHED 2
#define BS_PATTERN 3
#define BS_INDEXED 4
#define BS_DIBPATTERN 5
#define BS_DIBPATTERNPT 6
#define BS_PATTERN8X8 7
#define BS_DIBPATTERN8X8 8
#define BS_MONOPATTERN 9
#define HS_HORIZONTAL 0
#define HS_VERTICAL 1
#define HS_FDIAGONAL 2
#define HS_BDIAGONAL 3
#define HS_CROSS 4
#define HS_DIAGCROSS 5
#define HS_API_MAX 12

/* ---- Bitmaps and DIBs ------------------------------------------------ */
#define DIB_RGB_COLORS 0
#define DIB_PAL_COLORS 1
#define CBM_INIT 0x04
#define BI_RGB 0
#define BI_RLE8 1
#define BI_RLE4 2
#define BI_BITFIELDS 3
#define BI_JPEG 4
#define BI_PNG 5
#define LCS_CALIBRATED_RGB 0x00000000
#define LCS_sRGB 0x73524742
#define LCS_WINDOWS_COLOR_SPACE 0x57696E20
#define PROFILE_LINKED 0x4C494E4B
#define PROFILE_EMBEDDED 0x4D424544
#define LCS_GM_BUSINESS 0x00000001
#define LCS_GM_GRAPHICS 0x00000002
#define LCS_GM_IMAGES 0x00000004
#define LCS_GM_ABS_COLORIMETRIC 0x00000008

/* ---- Palettes -------------------------------------------------------- */
#define PC_RESERVED 0x01
#define PC_EXPLICIT 0x02
#define PC_NOCOLLAPSE 0x04
#define SYSPAL_ERROR 0
#define SYSPAL_STATIC 1
#define SYSPAL_NOSTATIC 2
#define SYSPAL_NOSTATIC256 3

/* ---- Colour values --------------------------------------------------- */
#define RGB(r, g, b) ((COLORREF)(((BYTE)(r) | ((WORD)((BYTE)(g)) << 8)) | (((DWORD)(BYTE)(b)) << 16)))
#define PALETTERGB(r, g, b) (0x02000000 | RGB(r, g, b))
#define PALETTEINDEX(i) ((COLORREF)(0x01000000 | (DWORD)(WORD)(i)))
#define DIBINDEX(n) MAKELONG((n), 0x10FF)
#define GetRValue(rgb) (LOBYTE(rgb))
#define GetGValue(rgb) (LOBYTE(((WORD)(rgb)) >> 8))
#define GetBValue(rgb) (LOBYTE((rgb) >> 16))

/* ---- Logical fonts --------------------------------------------------- */
#define LF_FACESIZE 32
#define LF_FULLFACESIZE 64

#define OUT_DEFAULT_PRECIS 0
#define OUT_STRING_PRECIS 1
#define OUT_CHARACTER_PRECIS 2
#define OUT_STROKE_PRECIS 3
#define OUT_TT_PRECIS 4
#define OUT_DEVICE_PRECIS 5
#define OUT_RASTER_PRECIS 6
#define OUT_TT_ONLY_PRECIS 7
#define OUT_OUTLINE_PRECIS 8
#define OUT_SCREEN_OUTLINE_PRECIS 9
#define OUT_PS_ONLY_PRECIS 10

#define CLIP_DEFAULT_PRECIS 0
#define CLIP_CHARACTER_PRECIS 1
#define CLIP_STROKE_PRECIS 2
#define CLIP_MASK 0xf
#define CLIP_LH_ANGLES (1 << 4)
#define CLIP_TT_ALWAYS (2 << 4)
#define CLIP_DFA_DISABLE (4 << 4)
#define CLIP_EMBEDDED (8 << 4)

#define DEFAULT_QUALITY 0
#define DRAFT_QUALITY 1
#define PROOF_QUALITY 2
#define NONANTIALIASED_QUALITY 3
#define ANTIALIASED_QUALITY 4
#define CLEARTYPE_QUALITY 5
#define CLEARTYPE_NATURAL_QUALITY 6

#define DEFAULT_PITCH 0
#define FIXED_PITCH 1
#define VARIABLE_PITCH 2
#define MONO_FONT 8

#define ANSI_CHARSET 0
#define DEFAULT_CHARSET 1
#define SYMBOL_CHARSET 2
#define MAC_CHARSET 77
#define SHIFTJIS_CHARSET 128
#define HANGEUL_CHARSET 129
#define HANGUL_CHARSET 129
#define JOHAB_CHARSET 130
#define GB2312_CHARSET 134
#define CHINESEBIG5_CHARSET 136
#define GREEK_CHARSET 161
#define TURKISH_CHARSET 162
#define VIETNAMESE_CHARSET 163
#define HEBREW_CHARSET 177
#define ARABIC_CHARSET 178
#define BALTIC_CHARSET 186
#define RUSSIAN_CHARSET 204
#define THAI_CHARSET 222
#define EASTEUROPE_CHARSET 238
#define OEM_CHARSET 255

/* Code-page bits of FONTSIGNATURE.fsCsb[0]. */
#define FS_LATIN1 0x00000001
#define FS_LATIN2 0x00000002
#define FS_CYRILLIC 0x00000004
#define FS_GREEK 0x00000008
#define FS_TURKISH 0x00000010
#define FS_HEBREW 0x00000020
#define FS_ARABIC 0x00000040
#define FS_BALTIC 0x00000080
#define FS_VIETNAMESE 0x00000100
#define FS_THAI 0x00010000
#define FS_JISJAPAN 0x00020000
#define FS_CHINESESIMP 0x00040000
#define FS_WANSUNG 0x00080000
#define FS_CHINESETRAD 0x00100000
#define FS_JOHAB 0x00200000
#define FS_SYMBOL 0x80000000

/* TranslateCharsetInfo source selectors. */
#define TCI_SRCCHARSET 1
#define TCI_SRCCODEPAGE 2
#define TCI_SRCFONTSIG 3

#define FF_DONTCARE (0 << 4)
#define FF_ROMAN (1 << 4)
#define FF_SWISS (2 << 4)
#define FF_MODERN (3 << 4)
#define FF_SCRIPT (4 << 4)
#define FF_DECORATIVE (5 << 4)

#define FW_DONTCARE 0
#define FW_THIN 100
#define FW_EXTRALIGHT 200
#define FW_LIGHT 300
#define FW_NORMAL 400
#define FW_MEDIUM 500
#define FW_SEMIBOLD 600
#define FW_BOLD 700
#define FW_EXTRABOLD 800
#define FW_HEAVY 900
#define FW_ULTRALIGHT FW_EXTRALIGHT
#define FW_REGULAR FW_NORMAL
#define FW_DEMIBOLD FW_SEMIBOLD
#define FW_ULTRABOLD FW_EXTRABOLD
#define FW_BLACK FW_HEAVY

/* ---- Font enumeration and metrics ------------------------------------ */
#define RASTER_FONTTYPE 0x0001
#define DEVICE_FONTTYPE 0x0002
#define TRUETYPE_FONTTYPE 0x0004

#define TMPF_FIXED_PITCH 0x01
#define TMPF_VECTOR 0x02
#define TMPF_TRUETYPE 0x04
#define TMPF_DEVICE 0x08

#define NTM_ITALIC 0x00000001
#define NTM_BOLD 0x00000020
#define NTM_REGULAR 0x00000040
#define NTM_NONNEGATIVE_AC 0x00010000
#define NTM_PS_OPENTYPE 0x00020000
#define NTM_TT_OPENTYPE 0x00040000
#define NTM_MULTIPLEMASTER 0x00080000
#define NTM_TYPE1 0x00100000
#define NTM_DSIG 0x00200000

#define PANOSE_COUNT 10

/* GetGlyphOutline formats and outline record types. */
#define GGO_METRICS 0
#define GGO_BITMAP 1
#define GGO_NATIVE 2
#define GGO_BEZIER 3
#define GGO_GRAY2_BITMAP 4
#define GGO_GRAY4_BITMAP 5
#define GGO_GRAY8_BITMAP 6
#define GGO_GLYPH_INDEX 0x0080
#define GGO_UNHINTED 0x0100
#define TT_POLYGON_TYPE 24
#define TT_PRIM_LINE 1
#define TT_PRIM_QSPLINE 2
#define TT_PRIM_CSPLINE 3

/* GetCharacterPlacement flags and character classes. */
#define GCP_DBCS 0x0001
#define GCP_REORDER 0x0002
#define GCP_USEKERNING 0x0008
#define GCP_GLYPHSHAPE 0x0010
#define GCP_LIGATE 0x0020
#define GCP_DIACRITIC 0x0100
#define GCP_KASHIDA 0x0400
#define GCP_ERROR 0x8000
#define FLI_MASK 0x103B
#define GCP_JUSTIFY 0x00010000
#define FLI_GLYPHS 0x00040000
#define GCP_CLASSIN 0x00080000
#define GCP_MAXEXTENT 0x00100000
#define GCP_JUSTIFYIN 0x00200000
#define GCP_DISPLAYZWG 0x00400000
#define GCP_SYMSWAPOFF 0x00800000
#define GCP_NUMERICOVERRIDE 0x01000000
#define GCP_NEUTRALOVERRIDE 0x02000000
#define GCP_NUMERICSLATIN 0x04000000
#define GCP_NUMERICSLOCAL 0x08000000
#define GCPCLASS_LATIN 1
#define GCPCLASS_HEBREW 2
#define GCPCLASS_ARABIC 2
#define GCPCLASS_NEUTRAL 3
#define GCPCLASS_LOCALNUMBER 4
#define GCPCLASS_LATINNUMBER 5
#define GCPCLASS_LATINNUMERICTERMINATOR 6
#define GCPCLASS_LATINNUMERICSEPARATOR 7
#define GCPCLASS_NUMERICSEPARATOR 8
#define GCPCLASS_PREBOUNDLTR 0x80
#define GCPCLASS_PREBOUNDRTL 0x40
#define GCPCLASS_POSTBOUNDLTR 0x20
#define GCPCLASS_POSTBOUNDRTL 0x10
#define GCPGLYPH_LINKBEFORE 0x8000
#define GCPGLYPH_LINKAFTER 0x4000

/* ---- Device capabilities (GetDeviceCaps) ----------------------------- */
#define DRIVERVERSION 0
#define TECHNOLOGY 2
#define HORZSIZE 4
#define VERTSIZE 6
#define HORZRES 8
#define VERTRES 10
#define BITSPIXEL 12
#define PLANES 14
#define NUMBRUSHES 16
#define NUMPENS 18
#define NUMMARKERS 20
#define NUMFONTS 22
#define NUMCOLORS 24
#define PDEVICESIZE 26
#define CURVECAPS 28
#define LINECAPS 30
#define POLYGONALCAPS 32
#define TEXTCAPS 34
#define CLIPCAPS 36
#define RASTERCAPS 38
#define ASPECTX 40
#define ASPECTY 42
#define ASPECTXY 44
#define LOGPIXELSX 88
#define LOGPIXELSY 90
#define SIZEPALETTE 104
#define NUMRESERVED 106
#define COLORRES 108
#define PHYSICALWIDTH 110
#define PHYSICALHEIGHT 111
#define PHYSICALOFFSETX 112
#define PHYSICALOFFSETY 113
#define SCALINGFACTORX 114
#define SCALINGFACTORY 115
#define VREFRESH 116
#define DESKTOPVERTRES 117
#define DESKTOPHORZRES 118
#define BLTALIGNMENT 119
#define SHADEBLENDCAPS 120
#define COLORMGMTCAPS 121

/* TECHNOLOGY values. */
#define DT_PLOTTER 0
#define DT_RASDISPLAY 1
#define DT_RASPRINTER 2
#define DT_RASCAMERA 3
#define DT_CHARSTREAM 4
#define DT_METAFILE 5
#define DT_DISPFILE 6

/* CURVECAPS bits. */
#define CC_NONE 0
#define CC_CIRCLES 1
#define CC_PIE 2
#define CC_CHORD 4
#define CC_ELLIPSES 8
#define CC_WIDE 16
#define CC_STYLED 32
#define CC_WIDESTYLED 64
#define CC_INTERIORS 128
#define CC_ROUNDRECT 256

/* LINECAPS bits. */
#define LC_NONE 0
#define LC_POLYLINE 2
#define LC_MARKER 4
#define LC_POLYMARKER 8
#define LC_WIDE 16
#define LC_STYLED 32
#define LC_WIDESTYLED 64
#define LC_INTERIORS 128

/* POLYGONALCAPS bits. */
#define PC_NONE 0
#define PC_POLYGON 1
#define PC_RECTANGLE 2
#define PC_WINDPOLYGON 4
#define PC_TRAPEZOID 4
#define PC_SCANLINE 8
#define PC_WIDE 16
#define PC_STYLED 32
#define PC_WIDESTYLED 64
#define PC_INTERIORS 128
#define PC_POLYPOLYGON 256
#define PC_PATHS 512

/* CLIPCAPS values. */
#define CP_NONE 0
#define CP_RECTANGLE 1
#define CP_REGION 2

/* TEXTCAPS bits. */
#define TC_OP_CHARACTER 0x00000001
#define TC_OP_STROKE 0x00000002
#define TC_CP_STROKE 0x00000004
#define TC_CR_90 0x00000008
#define TC_CR_ANY 0x00000010
#define TC_SF_X_YINDEP 0x00000020
#define TC_SA_DOUBLE 0x00000040
#define TC_SA_INTEGER 0x00000080
#define TC_SA_CONTIN 0x00000100
#define TC_EA_DOUBLE 0x00000200
#define TC_IA_ABLE 0x00000400
#define TC_UA_ABLE 0x00000800
#define TC_SO_ABLE 0x00001000
#define TC_RA_ABLE 0x00002000
#define TC_VA_ABLE 0x00004000
#define TC_RESERVED 0x00008000
#define TC_SCROLLBLT 0x00010000

/* RASTERCAPS bits. */
#define RC_BITBLT 1
#define RC_BANDING 2
#define RC_SCALING 4
#define RC_BITMAP64 8
#define RC_GDI20_OUTPUT 0x0010
#define RC_GDI20_STATE 0x0020
#define RC_SAVEBITMAP 0x0040
#define RC_DI_BITMAP 0x0080
#define RC_PALETTE 0x0100
#define RC_DIBTODEV 0x0200
#define RC_BIGFONT 0x0400
#define RC_STRETCHBLT 0x0800
#define RC_FLOODFILL 0x1000
#define RC_STRETCHDIB 0x2000
#define RC_OP_DX_OUTPUT 0x4000
#define RC_DEVBITS 0x8000

/* SHADEBLENDCAPS bits. */
#define SB_NONE 0x00000000
#define SB_CONST_ALPHA 0x00000001
#define SB_PIXEL_ALPHA 0x00000002
#define SB_PREMULT_ALPHA 0x00000004
#define SB_GRAD_RECT 0x00000010
#define SB_GRAD_TRI 0x00000020

/* ---- Paths ----------------------------------------------------------- */
#define PT_CLOSEFIGURE 0x01
#define PT_LINETO 0x02
#define PT_BEZIERTO 0x04
#define PT_MOVETO 0x06

/* ---- Alpha blending and gradients ------------------------------------ */
#define AC_SRC_OVER 0x00
#define AC_SRC_ALPHA 0x01
#define GRADIENT_FILL_RECT_H 0x00000000
#define GRADIENT_FILL_RECT_V 0x00000001
#define GRADIENT_FILL_TRIANGLE 0x00000002
#define GRADIENT_FILL_OP_FLAG 0x000000ff

/* ---- Printer escapes (Escape, ExtEscape) ----------------------------- */
#define NEWFRAME 1
#define ABORTDOC 2
#define NEXTBAND 3
#define SETCOLORTABLE 4
#define GETCOLORTABLE 5
#define FLUSHOUTPUT 6
#define DRAFTMODE 7
#define QUERYESCSUPPORT 8
#define SETABORTPROC 9
#define STARTDOC 10
#define ENDDOC 11
#define GETPHYSPAGESIZE 12
#define GETPRINTINGOFFSET 13
#define GETSCALINGFACTOR 14
#define MFCOMMENT 15
#define GETPENWIDTH 16
#define SETCOPYCOUNT 17
#define SELECTPAPERSOURCE 18
#define DEVICEDATA 19
#define PASSTHROUGH 19
#define GETTECHNOLGY 20
#define GETTECHNOLOGY 20
#define SETLINECAP 21
#define SETLINEJOIN 22
#define SETMITERLIMIT 23
#define BANDINFO 24
#define DRAWPATTERNRECT 25
#define GETVECTORPENSIZE 26
#define GETVECTORBRUSHSIZE 27
#define ENABLEDUPLEX 28
#define GETSETPAPERBINS 29
#define GETSETPRINTORIENT 30
#define ENUMPAPERBINS 31
#define SETDIBSCALING 32
#define EPSPRINTING 33
#define ENUMPAPERMETRICS 34
#define GETSETPAPERMETRICS 35
#define POSTSCRIPT_DATA 37
#define POSTSCRIPT_IGNORE 38
#define MOUSETRAILS 39
#define GETDEVICEUNITS 42
#define GETEXTENDEDTEXTMETRICS 256
#define GETEXTENTTABLE 257
#define GETPAIRKERNTABLE 258
#define GETTRACKKERNTABLE 259
#define EXTTEXTOUT 512
#define GETFACENAME 513
#define DOWNLOADFACE 514
#define ENABLERELATIVEWIDTHS 768
#define ENABLEPAIRKERNING 769
#define SETKERNTRACK 770
#define SETALLJUSTVALUES 771
#define SETCHARSET 772
#define STRETCHBLT 2048
#define METAFILE_DRIVER 2049
#define GETSETSCREENPARAMS 3072
#define QUERYDIBSUPPORT 3073
#define BEGIN_PATH 4096
#define CLIP_TO_PATH 4097
#define END_PATH 4098
#define EXT_DEVICE_CAPS 4099
#define RESTORE_CTM 4100
#define SAVE_CTM 4101
#define SET_ARC_DIRECTION 4102
#define SET_BACKGROUND_COLOR 4103
#define SET_POLY_MODE 4104
#define SET_SCREEN_ANGLE 4105
#define SET_SPREAD 4106
#define TRANSFORM_CTM 4107
#define SET_CLIP_BOX 4108
#define SET_BOUNDS 4109
#define SET_MIRROR_MODE 4110
#define OPENCHANNEL 4110
#define DOWNLOADHEADER 4111
#define CLOSECHANNEL 4112
#define POSTSCRIPT_PASSTHROUGH 4115
#define ENCAPSULATED_POSTSCRIPT 4116
#define POSTSCRIPT_IDENTIFY 4117
#define POSTSCRIPT_INJECTION 4118
#define CHECKJPEGFORMAT 4119
#define CHECKPNGFORMAT 4120
#define GET_PS_FEATURESETTING 4121

/* Spooling results of StartDoc/EndPage and the abort procedure codes. */
#define SP_NOTREPORTED 0x4000
#define SP_ERROR (-1)
#define SP_APPABORT (-2)
#define SP_USERABORT (-3)
#define SP_OUTOFDISK (-4)
#define SP_OUTOFMEMORY (-5)
#define PR_JOBSTATUS 0x0000

/* DOCINFO.fwType */
#define DI_APPBANDING 0x00000001
#define DI_ROPS_READ_DESTINATION 0x00000002

/* ---- Device modes ---------------------------------------------------- */
#define CCHDEVICENAME 32
#define CCHFORMNAME 32
#define DM_SPECVERSION 0x0401

/* DEVMODE.dmFields bits. */
#define DM_ORIENTATION 0x00000001
#define DM_PAPERSIZE 0x00000002
#define DM_PAPERLENGTH 0x00000004
#define DM_PAPERWIDTH 0x00000008
#define DM_SCALE 0x00000010
#define DM_POSITION 0x00000020
#define DM_NUP 0x00000040
#define DM_DISPLAYORIENTATION 0x00000080
#define DM_COPIES 0x00000100
#define DM_DEFAULTSOURCE 0x00000200
#define DM_PRINTQUALITY 0x00000400
#define DM_COLOR 0x00000800
#define DM_DUPLEX 0x00001000
#define DM_YRESOLUTION 0x00002000
#define DM_TTOPTION 0x00004000
#define DM_COLLATE 0x00008000
#define DM_FORMNAME 0x00010000
#define DM_LOGPIXELS 0x00020000
#define DM_BITSPERPEL 0x00040000
#define DM_PELSWIDTH 0x00080000
#define DM_PELSHEIGHT 0x00100000
#define DM_DISPLAYFLAGS 0x00200000
#define DM_DISPLAYFREQUENCY 0x00400000
#define DM_ICMMETHOD 0x00800000
#define DM_ICMINTENT 0x01000000
#define DM_MEDIATYPE 0x02000000
#define DM_DITHERTYPE 0x04000000
#define DM_PANNINGWIDTH 0x08000000
#define DM_PANNINGHEIGHT 0x10000000
#define DM_DISPLAYFIXEDOUTPUT 0x20000000

#define DMORIENT_PORTRAIT 1
#define DMORIENT_LANDSCAPE 2

#define DMPAPER_FIRST DMPAPER_LETTER
#define DMPAPER_LETTER 1
#define DMPAPER_LETTERSMALL 2
#define DMPAPER_TABLOID 3
#define DMPAPER_LEDGER 4
#define DMPAPER_LEGAL 5
#define DMPAPER_STATEMENT 6
#define DMPAPER_EXECUTIVE 7
#define DMPAPER_A3 8
#define DMPAPER_A4 9
#define DMPAPER_A4SMALL 10
#define DMPAPER_A5 11
#define DMPAPER_B4 12
#define DMPAPER_B5 13
#define DMPAPER_FOLIO 14
#define DMPAPER_QUARTO 15
#define DMPAPER_10X14 16
#define DMPAPER_11X17 17
#define DMPAPER_NOTE 18
#define DMPAPER_ENV_9 19
#define DMPAPER_ENV_10 20
#define DMPAPER_ENV_11 21
#define DMPAPER_ENV_12 22
#define DMPAPER_ENV_14 23
#define DMPAPER_CSHEET 24
#define DMPAPER_DSHEET 25
#define DMPAPER_ESHEET 26
#define DMPAPER_ENV_DL 27
#define DMPAPER_ENV_C5 28
#define DMPAPER_ENV_C3 29
#define DMPAPER_ENV_C4 30
#define DMPAPER_ENV_C6 31
#define DMPAPER_ENV_C65 32
#define DMPAPER_ENV_B4 33
#define DMPAPER_ENV_B5 34
#define DMPAPER_ENV_B6 35
#define DMPAPER_ENV_ITALY 36
#define DMPAPER_ENV_MONARCH 37
#define DMPAPER_ENV_PERSONAL 38
#define DMPAPER_FANFOLD_US 39
#define DMPAPER_FANFOLD_STD_GERMAN 40
#define DMPAPER_FANFOLD_LGL_GERMAN 41
#define DMPAPER_ISO_B4 42
#define DMPAPER_JAPANESE_POSTCARD 43
#define DMPAPER_9X11 44
#define DMPAPER_10X11 45
#define DMPAPER_15X11 46
#define DMPAPER_ENV_INVITE 47
#define DMPAPER_LETTER_EXTRA 50
#define DMPAPER_LEGAL_EXTRA 51
#define DMPAPER_TABLOID_EXTRA 52
#define DMPAPER_A4_EXTRA 53
#define DMPAPER_LETTER_TRANSVERSE 54
#define DMPAPER_A4_TRANSVERSE 55
#define DMPAPER_LETTER_EXTRA_TRANSVERSE 56
#define DMPAPER_A_PLUS 57
#define DMPAPER_B_PLUS 58
#define DMPAPER_LETTER_PLUS 59
#define DMPAPER_A4_PLUS 60
#define DMPAPER_A5_TRANSVERSE 61
#define DMPAPER_B5_TRANSVERSE 62
#define DMPAPER_A3_EXTRA 63
#define DMPAPER_A5_EXTRA 64
#define DMPAPER_B5_EXTRA 65
#define DMPAPER_A2 66
#define DMPAPER_A3_TRANSVERSE 67
#define DMPAPER_A3_EXTRA_TRANSVERSE 68
#define DMPAPER_USER 256

#define DMBIN_FIRST DMBIN_UPPER
#define DMBIN_UPPER 1
#define DMBIN_ONLYONE 1
#define DMBIN_LOWER 2
#define DMBIN_MIDDLE 3
#define DMBIN_MANUAL 4
#define DMBIN_ENVELOPE 5
#define DMBIN_ENVMANUAL 6
#define DMBIN_AUTO 7
#define DMBIN_TRACTOR 8
#define DMBIN_SMALLFMT 9
#define DMBIN_LARGEFMT 10
#define DMBIN_LARGECAPACITY 11
#define DMBIN_CASSETTE 14
#define DMBIN_FORMSOURCE 15
#define DMBIN_LAST DMBIN_FORMSOURCE
#define DMBIN_USER 256

#define DMRES_DRAFT (-1)
#define DMRES_LOW (-2)
#define DMRES_MEDIUM (-3)
#define DMRES_HIGH (-4)

#define DMCOLOR_MONOCHROME 1
#define DMCOLOR_COLOR 2

#define DMDUP_SIMPLEX 1
#define DMDUP_VERTICAL 2
#define DMDUP_HORIZONTAL 3

#define DMTT_BITMAP 1
#define DMTT_DOWNLOAD 2
#define DMTT_SUBDEV 3
#define DMTT_DOWNLOAD_OUTLINE 4

#define DMCOLLATE_FALSE 0
#define DMCOLLATE_TRUE 1

#define DMDO_DEFAULT 0
#define DMDO_90 1
#define DMDO_180 2
#define DMDO_270 3

#define DM_GRAYSCALE 0x00000001
#define DM_INTERLACED 0x00000002

#define DMMEDIA_STANDARD 1
#define DMMEDIA_TRANSPARENCY 2
#define DMMEDIA_GLOSSY 3
#define DMMEDIA_USER 256

/* DocumentProperties modes. */
#define DM_UPDATE 1
#define DM_COPY 2
#define DM_PROMPT 4
#define DM_MODIFY 8
#define DM_IN_BUFFER DM_MODIFY
#define DM_IN_PROMPT DM_PROMPT
#define DM_OUT_BUFFER DM_COPY
#define DM_OUT_DEFAULT DM_UPDATE

/* DeviceCapabilities queries. */
#define DC_FIELDS 1
#define DC_PAPERS 2
#define DC_PAPERSIZE 3
#define DC_MINEXTENT 4
#define DC_MAXEXTENT 5
#define DC_BINS 6
#define DC_DUPLEX 7
#define DC_SIZE 8
#define DC_EXTRA 9
#define DC_VERSION 10
#define DC_DRIVER 11
#define DC_BINNAMES 12
#define DC_ENUMRESOLUTIONS 13
#define DC_FILEDEPENDENCIES 14
#define DC_TRUETYPE 15
#define DC_PAPERNAMES 16
#define DC_ORIENTATION 17
#define DC_COPIES 18
#define DC_BINADJUST 19
#define DC_EMF_COMPLIANT 20
#define DC_DATATYPE_PRODUCED 21
#define DC_COLLATE 22
#define DC_MANUFACTURER 23
#define DC_MODEL 24
#define DC_PERSONALITY 25
#define DC_PRINTRATE 26
#define DC_PRINTRATEUNIT 27
#define DC_PRINTERMEM 28
#define DC_MEDIAREADY 29
#define DC_STAPLE 30
#define DC_PRINTRATEPPM 31
#define DC_COLORDEVICE 32
#define DC_NUP 33
#define DC_MEDIATYPENAMES 34
#define DC_MEDIATYPES 35

/* ---- Metafile records ------------------------------------------------ */
#define MEMORYMETAFILE 1
#define DISKMETAFILE 2

#define META_SETBKCOLOR 0x0201
#define META_SETBKMODE 0x0102
#define META_SETMAPMODE 0x0103
#define META_SETROP2 0x0104
#define META_SETRELABS 0x0105
#define META_SETPOLYFILLMODE 0x0106
#define META_SETSTRETCHBLTMODE 0x0107
#define META_SETTEXTCHAREXTRA 0x0108
#define META_SETTEXTCOLOR 0x0209
#define META_SETTEXTJUSTIFICATION 0x020A
#define META_SETWINDOWORG 0x020B
#define META_SETWINDOWEXT 0x020C
#define META_SETVIEWPORTORG 0x020D
#define META_SETVIEWPORTEXT 0x020E
#define META_OFFSETWINDOWORG 0x020F
#define META_SCALEWINDOWEXT 0x0410
#define META_OFFSETVIEWPORTORG 0x0211
#define META_SCALEVIEWPORTEXT 0x0412
#define META_LINETO 0x0213
#define META_MOVETO 0x0214
#define META_EXCLUDECLIPRECT 0x0415
#define META_INTERSECTCLIPRECT 0x0416
#define META_ARC 0x0817
#define META_ELLIPSE 0x0418
#define META_FLOODFILL 0x0419
#define META_PIE 0x081A
#define META_RECTANGLE 0x041B
#define META_ROUNDRECT 0x061C
#define META_PATBLT 0x061D
#define META_SAVEDC 0x001E
#define META_SETPIXEL 0x041F
#define META_OFFSETCLIPRGN 0x0220
#define META_TEXTOUT 0x0521
#define META_BITBLT 0x0922
#define META_STRETCHBLT 0x0B23
#define META_POLYGON 0x0324
#define META_POLYLINE 0x0325
#define META_ESCAPE 0x0626
#define META_RESTOREDC 0x0127
#define META_FILLREGION 0x0228
#define META_FRAMEREGION 0x0429
#define META_INVERTREGION 0x012A
#define META_PAINTREGION 0x012B
#define META_SELECTCLIPREGION 0x012C
#define META_SELECTOBJECT 0x012D
#define META_SETTEXTALIGN 0x012E
#define META_CHORD 0x0830
#define META_SETMAPPERFLAGS 0x0231
#define META_EXTTEXTOUT 0x0A32
#define META_SETDIBTODEV 0x0D33
#define META_SELECTPALETTE 0x0234
#define META_REALIZEPALETTE 0x0035
#define META_ANIMATEPALETTE 0x0436
#define META_SETPALENTRIES 0x0037
#define META_POLYPOLYGON 0x0538
#define META_RESIZEPALETTE 0x0139
#define META_DIBBITBLT 0x0940
#define META_DIBSTRETCHBLT 0x0B41
#define META_DIBCREATEPATTERNBRUSH 0x0142
#define META_STRETCHDIB 0x0F43
#define META_EXTFLOODFILL 0x0548
#define META_SETLAYOUT 0x0149
#define META_DELETEOBJECT 0x01F0
#define META_CREATEPALETTE 0x00F7
#define META_CREATEPATTERNBRUSH 0x01F9
#define META_CREATEPENINDIRECT 0x02FA
#define META_CREATEFONTINDIRECT 0x02FB
#define META_CREATEBRUSHINDIRECT 0x02FC
#define META_CREATEREGION 0x06FF

#ifndef RC_INVOKED

#define HGDI_ERROR ((HANDLE)(LONG_PTR)-1)

/* ---- Transforms ------------------------------------------------------ */
typedef struct tagXFORM {
    FLOAT eM11;
    FLOAT eM12;
    FLOAT eM21;
    FLOAT eM22;
    FLOAT eDx;
    FLOAT eDy;
} XFORM, *PXFORM, *LPXFORM;
VORLAN_CHECK_SIZE(XFORM, 24, 24);

/* ---- Bitmaps --------------------------------------------------------- */
typedef struct tagBITMAP {
    LONG bmType;
    LONG bmWidth;
    LONG bmHeight;
    LONG bmWidthBytes;
    WORD bmPlanes;
    WORD bmBitsPixel;
    LPVOID bmBits;
} BITMAP, *PBITMAP, *NPBITMAP, *LPBITMAP;
VORLAN_CHECK_SIZE(BITMAP, 24, 32);

typedef struct tagRGBTRIPLE {
    BYTE rgbtBlue;
    BYTE rgbtGreen;
    BYTE rgbtRed;
} RGBTRIPLE, *PRGBTRIPLE, *NPRGBTRIPLE, *LPRGBTRIPLE;
VORLAN_CHECK_SIZE(RGBTRIPLE, 3, 3);

typedef struct tagRGBQUAD {
    BYTE rgbBlue;
    BYTE rgbGreen;
    BYTE rgbRed;
    BYTE rgbReserved;
} RGBQUAD, *LPRGBQUAD;
VORLAN_CHECK_SIZE(RGBQUAD, 4, 4);

/* Colour-space end points in 2.30 fixed point. */
typedef LONG FXPT2DOT30, *LPFXPT2DOT30;
typedef LONG FXPT16DOT16, *LPFXPT16DOT16;
typedef LONG LCSCSTYPE;
typedef LONG LCSGAMUTMATCH;

typedef struct tagCIEXYZ {
    FXPT2DOT30 ciexyzX;
    FXPT2DOT30 ciexyzY;
    FXPT2DOT30 ciexyzZ;
} CIEXYZ, *LPCIEXYZ;
VORLAN_CHECK_SIZE(CIEXYZ, 12, 12);

typedef struct tagCIEXYZTRIPLE {
    CIEXYZ ciexyzRed;
    CIEXYZ ciexyzGreen;
    CIEXYZ ciexyzBlue;
} CIEXYZTRIPLE, *LPCIEXYZTRIPLE;
VORLAN_CHECK_SIZE(CIEXYZTRIPLE, 36, 36);

typedef struct tagBITMAPCOREHEADER {
    DWORD bcSize;
    WORD bcWidth;
    WORD bcHeight;
    WORD bcPlanes;
    WORD bcBitCount;
} BITMAPCOREHEADER, *LPBITMAPCOREHEADER, *PBITMAPCOREHEADER;
VORLAN_CHECK_SIZE(BITMAPCOREHEADER, 12, 12);

typedef struct tagBITMAPINFOHEADER {
    DWORD biSize;
    LONG biWidth;
    LONG biHeight;
    WORD biPlanes;
    WORD biBitCount;
    DWORD biCompression;
    DWORD biSizeImage;
    LONG biXPelsPerMeter;
    LONG biYPelsPerMeter;
    DWORD biClrUsed;
    DWORD biClrImportant;
} BITMAPINFOHEADER, *LPBITMAPINFOHEADER, *PBITMAPINFOHEADER;
VORLAN_CHECK_SIZE(BITMAPINFOHEADER, 40, 40);

typedef struct {
    DWORD bV4Size;
    LONG bV4Width;
    LONG bV4Height;
    WORD bV4Planes;
    WORD bV4BitCount;
    DWORD bV4V4Compression;
    DWORD bV4SizeImage;
    LONG bV4XPelsPerMeter;
    LONG bV4YPelsPerMeter;
    DWORD bV4ClrUsed;
    DWORD bV4ClrImportant;
    DWORD bV4RedMask;
    DWORD bV4GreenMask;
    DWORD bV4BlueMask;
    DWORD bV4AlphaMask;
    DWORD bV4CSType;
    CIEXYZTRIPLE bV4Endpoints;
    DWORD bV4GammaRed;
    DWORD bV4GammaGreen;
    DWORD bV4GammaBlue;
} BITMAPV4HEADER, *LPBITMAPV4HEADER, *PBITMAPV4HEADER;
VORLAN_CHECK_SIZE(BITMAPV4HEADER, 108, 108);

typedef struct {
    DWORD bV5Size;
    LONG bV5Width;
    LONG bV5Height;
    WORD bV5Planes;
    WORD bV5BitCount;
    DWORD bV5Compression;
    DWORD bV5SizeImage;
    LONG bV5XPelsPerMeter;
    LONG bV5YPelsPerMeter;
    DWORD bV5ClrUsed;
    DWORD bV5ClrImportant;
    DWORD bV5RedMask;
    DWORD bV5GreenMask;
    DWORD bV5BlueMask;
    DWORD bV5AlphaMask;
    DWORD bV5CSType;
    CIEXYZTRIPLE bV5Endpoints;
    DWORD bV5GammaRed;
    DWORD bV5GammaGreen;
    DWORD bV5GammaBlue;
    DWORD bV5Intent;
    DWORD bV5ProfileData;
    DWORD bV5ProfileSize;
    DWORD bV5Reserved;
} BITMAPV5HEADER, *LPBITMAPV5HEADER, *PBITMAPV5HEADER;
VORLAN_CHECK_SIZE(BITMAPV5HEADER, 124, 124);

typedef struct tagBITMAPINFO {
    BITMAPINFOHEADER bmiHeader;
    RGBQUAD bmiColors[1];
} BITMAPINFO, *LPBITMAPINFO, *PBITMAPINFO;
VORLAN_CHECK_SIZE(BITMAPINFO, 44, 44);

typedef struct tagBITMAPCOREINFO {
    BITMAPCOREHEADER bmciHeader;
    RGBTRIPLE bmciColors[1];
} BITMAPCOREINFO, *LPBITMAPCOREINFO, *PBITMAPCOREINFO;
VORLAN_CHECK_SIZE(BITMAPCOREINFO, 16, 16);

/* The file header of a .bmp file is 2-byte packed: bfSize sits at offset 2. */
#pragma pack(push, 2)
typedef struct tagBITMAPFILEHEADER {
    WORD bfType;
    DWORD bfSize;
    WORD bfReserved1;
    WORD bfReserved2;
    DWORD bfOffBits;
} BITMAPFILEHEADER, *LPBITMAPFILEHEADER, *PBITMAPFILEHEADER;
#pragma pack(pop)
VORLAN_CHECK_SIZE(BITMAPFILEHEADER, 14, 14);

typedef struct tagDIBSECTION {
    BITMAP dsBm;
    BITMAPINFOHEADER dsBmih;
    DWORD dsBitfields[3];
    HANDLE dshSection;
    DWORD dsOffset;
} DIBSECTION, *LPDIBSECTION, *PDIBSECTION;
VORLAN_CHECK_SIZE(DIBSECTION, 84, 104);

/* ---- Pens and brushes ------------------------------------------------ */
typedef struct tagLOGPEN {
    UINT lopnStyle;
    POINT lopnWidth;
    COLORREF lopnColor;
} LOGPEN, *PLOGPEN, *NPLOGPEN, *LPLOGPEN;
VORLAN_CHECK_SIZE(LOGPEN, 16, 16);

typedef struct tagEXTLOGPEN {
    DWORD elpPenStyle;
    DWORD elpWidth;
    UINT elpBrushStyle;
    COLORREF elpColor;
    ULONG_PTR elpHatch;
    DWORD elpNumEntries;
    DWORD elpStyleEntry[1];
} EXTLOGPEN, *PEXTLOGPEN, *NPEXTLOGPEN, *LPEXTLOGPEN;
VORLAN_CHECK_SIZE(EXTLOGPEN, 28, 32);

typedef struct tagLOGBRUSH {
    UINT lbStyle;
    COLORREF lbColor;
    ULONG_PTR lbHatch;
} LOGBRUSH, *PLOGBRUSH, *NPLOGBRUSH, *LPLOGBRUSH;
VORLAN_CHECK_SIZE(LOGBRUSH, 12, 16);

typedef LOGBRUSH PATTERN, *PPATTERN, *NPPATTERN, *LPPATTERN;

/* ---- Palettes -------------------------------------------------------- */
typedef struct tagPALETTEENTRY {
    BYTE peRed;
    BYTE peGreen;
    BYTE peBlue;
    BYTE peFlags;
} PALETTEENTRY, *PPALETTEENTRY, *LPPALETTEENTRY;
VORLAN_CHECK_SIZE(PALETTEENTRY, 4, 4);

typedef struct tagLOGPALETTE {
    WORD palVersion;
    WORD palNumEntries;
    PALETTEENTRY palPalEntry[1];
} LOGPALETTE, *PLOGPALETTE, *NPLOGPALETTE, *LPLOGPALETTE;
VORLAN_CHECK_SIZE(LOGPALETTE, 8, 8);

/* ---- Fonts ----------------------------------------------------------- */
typedef struct tagLOGFONTA {
    LONG lfHeight;
    LONG lfWidth;
    LONG lfEscapement;
    LONG lfOrientation;
    LONG lfWeight;
    BYTE lfItalic;
    BYTE lfUnderline;
    BYTE lfStrikeOut;
    BYTE lfCharSet;
    BYTE lfOutPrecision;
    BYTE lfClipPrecision;
    BYTE lfQuality;
    BYTE lfPitchAndFamily;
    CHAR lfFaceName[LF_FACESIZE];
} LOGFONTA, *PLOGFONTA, *NPLOGFONTA, *LPLOGFONTA;
VORLAN_CHECK_SIZE(LOGFONTA, 60, 60);

typedef struct tagLOGFONTW {
    LONG lfHeight;
    LONG lfWidth;
    LONG lfEscapement;
    LONG lfOrientation;
    LONG lfWeight;
    BYTE lfItalic;
    BYTE lfUnderline;
    BYTE lfStrikeOut;
    BYTE lfCharSet;
    BYTE lfOutPrecision;
    BYTE lfClipPrecision;
    BYTE lfQuality;
    BYTE lfPitchAndFamily;
    WCHAR lfFaceName[LF_FACESIZE];
} LOGFONTW, *PLOGFONTW, *NPLOGFONTW, *LPLOGFONTW;
VORLAN_CHECK_SIZE(LOGFONTW, 92, 92);

typedef struct tagENUMLOGFONTA {
    LOGFONTA elfLogFont;
    BYTE elfFullName[LF_FULLFACESIZE];
    BYTE elfStyle[LF_FACESIZE];
} ENUMLOGFONTA, *LPENUMLOGFONTA;
VORLAN_CHECK_SIZE(ENUMLOGFONTA, 156, 156);

typedef struct tagENUMLOGFONTW {
    LOGFONTW elfLogFont;
    WCHAR elfFullName[LF_FULLFACESIZE];
    WCHAR elfStyle[LF_FACESIZE];
} ENUMLOGFONTW, *LPENUMLOGFONTW;
VORLAN_CHECK_SIZE(ENUMLOGFONTW, 284, 284);

typedef struct tagENUMLOGFONTEXA {
    LOGFONTA elfLogFont;
    BYTE elfFullName[LF_FULLFACESIZE];
    BYTE elfStyle[LF_FACESIZE];
    BYTE elfScript[LF_FACESIZE];
} ENUMLOGFONTEXA, *LPENUMLOGFONTEXA;
VORLAN_CHECK_SIZE(ENUMLOGFONTEXA, 188, 188);

typedef struct tagENUMLOGFONTEXW {
    LOGFONTW elfLogFont;
    WCHAR elfFullName[LF_FULLFACESIZE];
    WCHAR elfStyle[LF_FACESIZE];
    WCHAR elfScript[LF_FACESIZE];
} ENUMLOGFONTEXW, *LPENUMLOGFONTEXW;
VORLAN_CHECK_SIZE(ENUMLOGFONTEXW, 348, 348);

typedef struct tagTEXTMETRICA {
    LONG tmHeight;
    LONG tmAscent;
    LONG tmDescent;
    LONG tmInternalLeading;
    LONG tmExternalLeading;
    LONG tmAveCharWidth;
    LONG tmMaxCharWidth;
    LONG tmWeight;
    LONG tmOverhang;
    LONG tmDigitizedAspectX;
    LONG tmDigitizedAspectY;
    BYTE tmFirstChar;
    BYTE tmLastChar;
    BYTE tmDefaultChar;
    BYTE tmBreakChar;
    BYTE tmItalic;
    BYTE tmUnderlined;
    BYTE tmStruckOut;
    BYTE tmPitchAndFamily;
    BYTE tmCharSet;
} TEXTMETRICA, *PTEXTMETRICA, *NPTEXTMETRICA, *LPTEXTMETRICA;
VORLAN_CHECK_SIZE(TEXTMETRICA, 56, 56);

typedef struct tagTEXTMETRICW {
    LONG tmHeight;
    LONG tmAscent;
    LONG tmDescent;
    LONG tmInternalLeading;
    LONG tmExternalLeading;
    LONG tmAveCharWidth;
    LONG tmMaxCharWidth;
    LONG tmWeight;
    LONG tmOverhang;
    LONG tmDigitizedAspectX;
    LONG tmDigitizedAspectY;
    WCHAR tmFirstChar;
    WCHAR tmLastChar;
    WCHAR tmDefaultChar;
    WCHAR tmBreakChar;
    BYTE tmItalic;
    BYTE tmUnderlined;
    BYTE tmStruckOut;
    BYTE tmPitchAndFamily;
    BYTE tmCharSet;
} TEXTMETRICW, *PTEXTMETRICW, *NPTEXTMETRICW, *LPTEXTMETRICW;
VORLAN_CHECK_SIZE(TEXTMETRICW, 60, 60);

typedef struct tagNEWTEXTMETRICA {
    LONG tmHeight;
    LONG tmAscent;
    LONG tmDescent;
    LONG tmInternalLeading;
    LONG tmExternalLeading;
    LONG tmAveCharWidth;
    LONG tmMaxCharWidth;
    LONG tmWeight;
    LONG tmOverhang;
    LONG tmDigitizedAspectX;
    LONG tmDigitizedAspectY;
    BYTE tmFirstChar;
    BYTE tmLastChar;
    BYTE tmDefaultChar;
    BYTE tmBreakChar;
    BYTE tmItalic;
    BYTE tmUnderlined;
    BYTE tmStruckOut;
    BYTE tmPitchAndFamily;
    BYTE tmCharSet;
    DWORD ntmFlags;
    UINT ntmSizeEM;
    UINT ntmCellHeight;
    UINT ntmAvgWidth;
} NEWTEXTMETRICA, *PNEWTEXTMETRICA, *NPNEWTEXTMETRICA, *LPNEWTEXTMETRICA;
VORLAN_CHECK_SIZE(NEWTEXTMETRICA, 72, 72);

typedef struct tagNEWTEXTMETRICW {
    LONG tmHeight;
    LONG tmAscent;
    LONG tmDescent;
    LONG tmInternalLeading;
    LONG tmExternalLeading;
    LONG tmAveCharWidth;
    LONG tmMaxCharWidth;
    LONG tmWeight;
    LONG tmOverhang;
    LONG tmDigitizedAspectX;
    LONG tmDigitizedAspectY;
    WCHAR tmFirstChar;
    WCHAR tmLastChar;
    WCHAR tmDefaultChar;
    WCHAR tmBreakChar;
    BYTE tmItalic;
    BYTE tmUnderlined;
    BYTE tmStruckOut;
    BYTE tmPitchAndFamily;
    BYTE tmCharSet;
    DWORD ntmFlags;
    UINT ntmSizeEM;
    UINT ntmCellHeight;
    UINT ntmAvgWidth;
} NEWTEXTMETRICW, *PNEWTEXTMETRICW, *NPNEWTEXTMETRICW, *LPNEWTEXTMETRICW;
VORLAN_CHECK_SIZE(NEWTEXTMETRICW, 76, 76);

typedef struct tagFONTSIGNATURE {
    DWORD fsUsb[4];
    DWORD fsCsb[2];
} FONTSIGNATURE, *PFONTSIGNATURE, *LPFONTSIGNATURE;
VORLAN_CHECK_SIZE(FONTSIGNATURE, 24, 24);

typedef struct tagCHARSETINFO {
    UINT ciCharset;
    UINT ciACP;
    FONTSIGNATURE fs;
} CHARSETINFO, *PCHARSETINFO, *NPCHARSETINFO, *LPCHARSETINFO;
VORLAN_CHECK_SIZE(CHARSETINFO, 32, 32);

typedef struct tagNEWTEXTMETRICEXA {
    NEWTEXTMETRICA ntmTm;
    FONTSIGNATURE ntmFontSig;
} NEWTEXTMETRICEXA;
VORLAN_CHECK_SIZE(NEWTEXTMETRICEXA, 96, 96);

typedef struct tagNEWTEXTMETRICEXW {
    NEWTEXTMETRICW ntmTm;
    FONTSIGNATURE ntmFontSig;
} NEWTEXTMETRICEXW;
VORLAN_CHECK_SIZE(NEWTEXTMETRICEXW, 100, 100);

typedef struct tagPANOSE {
    BYTE bFamilyType;
    BYTE bSerifStyle;
    BYTE bWeight;
    BYTE bProportion;
    BYTE bContrast;
    BYTE bStrokeVariation;
    BYTE bArmStyle;
    BYTE bLetterform;
    BYTE bMidline;
    BYTE bXHeight;
} PANOSE, *LPPANOSE;
VORLAN_CHECK_SIZE(PANOSE, 10, 10);

typedef struct _OUTLINETEXTMETRICA {
    UINT otmSize;
    TEXTMETRICA otmTextMetrics;
    BYTE otmFiller;
    PANOSE otmPanoseNumber;
    UINT otmfsSelection;
    UINT otmfsType;
    int otmsCharSlopeRise;
    int otmsCharSlopeRun;
    int otmItalicAngle;
    UINT otmEMSquare;
    int otmAscent;
    int otmDescent;
    UINT otmLineGap;
    UINT otmsCapEmHeight;
    UINT otmsXHeight;
    RECT otmrcFontBox;
    int otmMacAscent;
    int otmMacDescent;
    UINT otmMacLineGap;
    UINT otmusMinimumPPEM;
    POINT otmptSubscriptSize;
    POINT otmptSubscriptOffset;
    POINT otmptSuperscriptSize;
    POINT otmptSuperscriptOffset;
    UINT otmsStrikeoutSize;
    int otmsStrikeoutPosition;
    int otmsUnderscoreSize;
    int otmsUnderscorePosition;
    PSTR otmpFamilyName;   /* these four are byte offsets from the start of the structure */
    PSTR otmpFaceName;
    PSTR otmpStyleName;
    PSTR otmpFullName;
} OUTLINETEXTMETRICA, *POUTLINETEXTMETRICA, *NPOUTLINETEXTMETRICA, *LPOUTLINETEXTMETRICA;
VORLAN_CHECK_SIZE(OUTLINETEXTMETRICA, 212, 232);

typedef struct _OUTLINETEXTMETRICW {
    UINT otmSize;
    TEXTMETRICW otmTextMetrics;
    BYTE otmFiller;
    PANOSE otmPanoseNumber;
    UINT otmfsSelection;
    UINT otmfsType;
    int otmsCharSlopeRise;
    int otmsCharSlopeRun;
    int otmItalicAngle;
    UINT otmEMSquare;
    int otmAscent;
    int otmDescent;
    UINT otmLineGap;
    UINT otmsCapEmHeight;
    UINT otmsXHeight;
    RECT otmrcFontBox;
    int otmMacAscent;
    int otmMacDescent;
    UINT otmMacLineGap;
    UINT otmusMinimumPPEM;
    POINT otmptSubscriptSize;
    POINT otmptSubscriptOffset;
    POINT otmptSuperscriptSize;
    POINT otmptSuperscriptOffset;
    UINT otmsStrikeoutSize;
    int otmsStrikeoutPosition;
    int otmsUnderscoreSize;
    int otmsUnderscorePosition;
    PSTR otmpFamilyName;
    PSTR otmpFaceName;
    PSTR otmpStyleName;
    PSTR otmpFullName;
} OUTLINETEXTMETRICW, *POUTLINETEXTMETRICW, *NPOUTLINETEXTMETRICW, *LPOUTLINETEXTMETRICW;
VORLAN_CHECK_SIZE(OUTLINETEXTMETRICW, 216, 232);

typedef struct _ABC {
    int abcA;
    UINT abcB;
    int abcC;
} ABC, *PABC, *NPABC, *LPABC;
VORLAN_CHECK_SIZE(ABC, 12, 12);

typedef struct tagKERNINGPAIR {
    WORD wFirst;
    WORD wSecond;
    int iKernAmount;
} KERNINGPAIR, *LPKERNINGPAIR;
VORLAN_CHECK_SIZE(KERNINGPAIR, 8, 8);

/* 16.16 fixed point value of glyph outlines. */
typedef struct _FIXED {
    WORD fract;
    short value;
} FIXED;
VORLAN_CHECK_SIZE(FIXED, 4, 4);

typedef struct _MAT2 {
    FIXED eM11;
    FIXED eM12;
    FIXED eM21;
    FIXED eM22;
} MAT2, *LPMAT2;
VORLAN_CHECK_SIZE(MAT2, 16, 16);

typedef struct _GLYPHMETRICS {
    UINT gmBlackBoxX;
    UINT gmBlackBoxY;
    POINT gmptGlyphOrigin;
    short gmCellIncX;
    short gmCellIncY;
} GLYPHMETRICS, *LPGLYPHMETRICS;
VORLAN_CHECK_SIZE(GLYPHMETRICS, 20, 20);

typedef struct tagPOINTFX {
    FIXED x;
    FIXED y;
} POINTFX, *LPPOINTFX;
VORLAN_CHECK_SIZE(POINTFX, 8, 8);

typedef struct tagTTPOLYCURVE {
    WORD wType;
    WORD cpfx;
    POINTFX apfx[1];
} TTPOLYCURVE, *LPTTPOLYCURVE;
VORLAN_CHECK_SIZE(TTPOLYCURVE, 12, 12);

typedef struct tagTTPOLYGONHEADER {
    DWORD cb;
    DWORD dwType;
    POINTFX pfxStart;
} TTPOLYGONHEADER, *LPTTPOLYGONHEADER;
VORLAN_CHECK_SIZE(TTPOLYGONHEADER, 16, 16);

typedef struct tagGCP_RESULTSA {
    DWORD lStructSize;
    LPSTR lpOutString;
    UINT *lpOrder;
    int *lpDx;
    int *lpCaretPos;
    LPSTR lpClass;
    LPWSTR lpGlyphs;
    UINT nGlyphs;
    int nMaxFit;
} GCP_RESULTSA, *LPGCP_RESULTSA;
VORLAN_CHECK_SIZE(GCP_RESULTSA, 36, 64);

typedef struct tagGCP_RESULTSW {
    DWORD lStructSize;
    LPWSTR lpOutString;
    UINT *lpOrder;
    int *lpDx;
    int *lpCaretPos;
    LPSTR lpClass;
    LPWSTR lpGlyphs;
    UINT nGlyphs;
    int nMaxFit;
} GCP_RESULTSW, *LPGCP_RESULTSW;
VORLAN_CHECK_SIZE(GCP_RESULTSW, 36, 64);

typedef int (CALLBACK *OLDFONTENUMPROCA)(const LOGFONTA *, const TEXTMETRICA *, DWORD, LPARAM);
typedef int (CALLBACK *OLDFONTENUMPROCW)(const LOGFONTW *, const TEXTMETRICW *, DWORD, LPARAM);
typedef OLDFONTENUMPROCA FONTENUMPROCA;
typedef OLDFONTENUMPROCW FONTENUMPROCW;
#ifdef UNICODE
typedef LOGFONTW LOGFONT;
typedef PLOGFONTW PLOGFONT;
typedef NPLOGFONTW NPLOGFONT;
typedef LPLOGFONTW LPLOGFONT;
typedef ENUMLOGFONTW ENUMLOGFONT;
typedef LPENUMLOGFONTW LPENUMLOGFONT;
typedef ENUMLOGFONTEXW ENUMLOGFONTEX;
typedef LPENUMLOGFONTEXW LPENUMLOGFONTEX;
typedef TEXTMETRICW TEXTMETRIC;
typedef PTEXTMETRICW PTEXTMETRIC;
typedef NPTEXTMETRICW NPTEXTMETRIC;
typedef LPTEXTMETRICW LPTEXTMETRIC;
typedef NEWTEXTMETRICW NEWTEXTMETRIC;
typedef PNEWTEXTMETRICW PNEWTEXTMETRIC;
typedef NPNEWTEXTMETRICW NPNEWTEXTMETRIC;
typedef LPNEWTEXTMETRICW LPNEWTEXTMETRIC;
typedef NEWTEXTMETRICEXW NEWTEXTMETRICEX;
typedef OUTLINETEXTMETRICW OUTLINETEXTMETRIC;
typedef POUTLINETEXTMETRICW POUTLINETEXTMETRIC;
typedef NPOUTLINETEXTMETRICW NPOUTLINETEXTMETRIC;
typedef LPOUTLINETEXTMETRICW LPOUTLINETEXTMETRIC;
typedef GCP_RESULTSW GCP_RESULTS;
typedef LPGCP_RESULTSW LPGCP_RESULTS;
typedef OLDFONTENUMPROCW OLDFONTENUMPROC;
typedef FONTENUMPROCW FONTENUMPROC;
#else
typedef LOGFONTA LOGFONT;
typedef PLOGFONTA PLOGFONT;
typedef NPLOGFONTA NPLOGFONT;
typedef LPLOGFONTA LPLOGFONT;
typedef ENUMLOGFONTA ENUMLOGFONT;
typedef LPENUMLOGFONTA LPENUMLOGFONT;
typedef ENUMLOGFONTEXA ENUMLOGFONTEX;
typedef LPENUMLOGFONTEXA LPENUMLOGFONTEX;
typedef TEXTMETRICA TEXTMETRIC;
typedef PTEXTMETRICA PTEXTMETRIC;
typedef NPTEXTMETRICA NPTEXTMETRIC;
typedef LPTEXTMETRICA LPTEXTMETRIC;
typedef NEWTEXTMETRICA NEWTEXTMETRIC;
typedef PNEWTEXTMETRICA PNEWTEXTMETRIC;
typedef NPNEWTEXTMETRICA NPNEWTEXTMETRIC;
typedef LPNEWTEXTMETRICA LPNEWTEXTMETRIC;
typedef NEWTEXTMETRICEXA NEWTEXTMETRICEX;
typedef OUTLINETEXTMETRICA OUTLINETEXTMETRIC;
typedef POUTLINETEXTMETRICA POUTLINETEXTMETRIC;
typedef NPOUTLINETEXTMETRICA NPOUTLINETEXTMETRIC;
typedef LPOUTLINETEXTMETRICA LPOUTLINETEXTMETRIC;
typedef GCP_RESULTSA GCP_RESULTS;
typedef LPGCP_RESULTSA LPGCP_RESULTS;
typedef OLDFONTENUMPROCA OLDFONTENUMPROC;
typedef FONTENUMPROCA FONTENUMPROC;
#endif

/* ---- Regions --------------------------------------------------------- */
typedef struct _RGNDATAHEADER {
    DWORD dwSize;
    DWORD iType;
    DWORD nCount;
    DWORD nRgnSize;
    RECT rcBound;
} RGNDATAHEADER, *PRGNDATAHEADER;
VORLAN_CHECK_SIZE(RGNDATAHEADER, 32, 32);

typedef struct _RGNDATA {
    RGNDATAHEADER rdh;
    char Buffer[1];
} RGNDATA, *PRGNDATA, *NPRGNDATA, *LPRGNDATA;
VORLAN_CHECK_SIZE(RGNDATA, 36, 36);

/* ---- Metafiles ------------------------------------------------------- */
typedef struct tagHANDLETABLE {
    HGDIOBJ objectHandle[1];
} HANDLETABLE, *PHANDLETABLE, *LPHANDLETABLE;
VORLAN_CHECK_SIZE(HANDLETABLE, 4, 8);

typedef struct tagMETARECORD {
    DWORD rdSize;
    WORD rdFunction;
    WORD rdParm[1];
} METARECORD, *PMETARECORD, *LPMETARECORD;
VORLAN_CHECK_SIZE(METARECORD, 8, 8);

typedef struct tagMETAFILEPICT {
    LONG mm;
    LONG xExt;
    LONG yExt;
    HMETAFILE hMF;
} METAFILEPICT, *LPMETAFILEPICT;
VORLAN_CHECK_SIZE(METAFILEPICT, 16, 24);

/* The metafile header as stored on disk: 2-byte packed. */
#pragma pack(push, 2)
typedef struct tagMETAHEADER {
    WORD mtType;
    WORD mtHeaderSize;
    WORD mtVersion;
    DWORD mtSize;
    WORD mtNoObjects;
    DWORD mtMaxRecord;
    WORD mtNoParameters;
} METAHEADER, *PMETAHEADER, *LPMETAHEADER;
#pragma pack(pop)
VORLAN_CHECK_SIZE(METAHEADER, 18, 18);

typedef int (CALLBACK *MFENUMPROC)(HDC hdc, HANDLETABLE *lpht, METARECORD *lpMR, int nObj, LPARAM param);

/* ---- Device modes ---------------------------------------------------- */
typedef struct _devicemodeA {
    BYTE dmDeviceName[CCHDEVICENAME];
    WORD dmSpecVersion;
    WORD dmDriverVersion;
    WORD dmSize;
    WORD dmDriverExtra;
    DWORD dmFields;
    __extension__ union {
        __extension__ struct {
            short dmOrientation;
            short dmPaperSize;
            short dmPaperLength;
            short dmPaperWidth;
            short dmScale;
            short dmCopies;
            short dmDefaultSource;
            short dmPrintQuality;
        };
        __extension__ struct {
            POINTL dmPosition;
            DWORD dmDisplayOrientation;
            DWORD dmDisplayFixedOutput;
        };
    };
    short dmColor;
    short dmDuplex;
    short dmYResolution;
    short dmTTOption;
    short dmCollate;
    BYTE dmFormName[CCHFORMNAME];
    WORD dmLogPixels;
    DWORD dmBitsPerPel;
    DWORD dmPelsWidth;
    DWORD dmPelsHeight;
    __extension__ union {
        DWORD dmDisplayFlags;
        DWORD dmNup;
    };
    DWORD dmDisplayFrequency;
    DWORD dmICMMethod;
    DWORD dmICMIntent;
    DWORD dmMediaType;
    DWORD dmDitherType;
    DWORD dmReserved1;
    DWORD dmReserved2;
    DWORD dmPanningWidth;
    DWORD dmPanningHeight;
} DEVMODEA, *PDEVMODEA, *NPDEVMODEA, *LPDEVMODEA;
VORLAN_CHECK_SIZE(DEVMODEA, 156, 156);

typedef struct _devicemodeW {
    WCHAR dmDeviceName[CCHDEVICENAME];
    WORD dmSpecVersion;
    WORD dmDriverVersion;
    WORD dmSize;
    WORD dmDriverExtra;
    DWORD dmFields;
    __extension__ union {
        __extension__ struct {
            short dmOrientation;
            short dmPaperSize;
            short dmPaperLength;
            short dmPaperWidth;
            short dmScale;
            short dmCopies;
            short dmDefaultSource;
            short dmPrintQuality;
        };
        __extension__ struct {
            POINTL dmPosition;
            DWORD dmDisplayOrientation;
            DWORD dmDisplayFixedOutput;
        };
    };
    short dmColor;
    short dmDuplex;
    short dmYResolution;
    short dmTTOption;
    short dmCollate;
    WCHAR dmFormName[CCHFORMNAME];
    WORD dmLogPixels;
    DWORD dmBitsPerPel;
    DWORD dmPelsWidth;
    DWORD dmPelsHeight;
    __extension__ union {
        DWORD dmDisplayFlags;
        DWORD dmNup;
    };
    DWORD dmDisplayFrequency;
    DWORD dmICMMethod;
    DWORD dmICMIntent;
    DWORD dmMediaType;
    DWORD dmDitherType;
    DWORD dmReserved1;
    DWORD dmReserved2;
    DWORD dmPanningWidth;
    DWORD dmPanningHeight;
} DEVMODEW, *PDEVMODEW, *NPDEVMODEW, *LPDEVMODEW;
VORLAN_CHECK_SIZE(DEVMODEW, 220, 220);

/* ---- Printing -------------------------------------------------------- */
typedef struct _DOCINFOA {
    int cbSize;
    LPCSTR lpszDocName;
    LPCSTR lpszOutput;
    LPCSTR lpszDatatype;
    DWORD fwType;
} DOCINFOA, *LPDOCINFOA;
VORLAN_CHECK_SIZE(DOCINFOA, 20, 40);

typedef struct _DOCINFOW {
    int cbSize;
    LPCWSTR lpszDocName;
    LPCWSTR lpszOutput;
    LPCWSTR lpszDatatype;
    DWORD fwType;
} DOCINFOW, *LPDOCINFOW;
VORLAN_CHECK_SIZE(DOCINFOW, 20, 40);

typedef BOOL (CALLBACK *ABORTPROC)(HDC, int);
#ifdef UNICODE
typedef DEVMODEW DEVMODE;
typedef PDEVMODEW PDEVMODE;
typedef NPDEVMODEW NPDEVMODE;
typedef LPDEVMODEW LPDEVMODE;
typedef DOCINFOW DOCINFO;
typedef LPDOCINFOW LPDOCINFO;
#else
typedef DEVMODEA DEVMODE;
typedef PDEVMODEA PDEVMODE;
typedef NPDEVMODEA NPDEVMODE;
typedef LPDEVMODEA LPDEVMODE;
typedef DOCINFOA DOCINFO;
typedef LPDOCINFOA LPDOCINFO;
#endif

/* ---- Alpha blending and gradients ------------------------------------ */
typedef struct _BLENDFUNCTION {
    BYTE BlendOp;
    BYTE BlendFlags;
    BYTE SourceConstantAlpha;
    BYTE AlphaFormat;
} BLENDFUNCTION, *PBLENDFUNCTION;
VORLAN_CHECK_SIZE(BLENDFUNCTION, 4, 4);

typedef USHORT COLOR16;

typedef struct _TRIVERTEX {
    LONG x;
    LONG y;
    COLOR16 Red;
    COLOR16 Green;
    COLOR16 Blue;
    COLOR16 Alpha;
} TRIVERTEX, *PTRIVERTEX, *LPTRIVERTEX;
VORLAN_CHECK_SIZE(TRIVERTEX, 16, 16);

typedef struct _GRADIENT_TRIANGLE {
    ULONG Vertex1;
    ULONG Vertex2;
    ULONG Vertex3;
} GRADIENT_TRIANGLE, *PGRADIENT_TRIANGLE, *LPGRADIENT_TRIANGLE;
VORLAN_CHECK_SIZE(GRADIENT_TRIANGLE, 12, 12);

typedef struct _GRADIENT_RECT {
    ULONG UpperLeft;
    ULONG LowerRight;
} GRADIENT_RECT, *PGRADIENT_RECT, *LPGRADIENT_RECT;
VORLAN_CHECK_SIZE(GRADIENT_RECT, 8, 8);

/* ==== Functions ======================================================= */

/* ---- Objects --------------------------------------------------------- */
WINGDIAPI HPEN WINAPI CreatePen(int iStyle, int cWidth, COLORREF color);
WINGDIAPI HPEN WINAPI CreatePenIndirect(const LOGPEN *plpen);
WINGDIAPI HPEN WINAPI ExtCreatePen(DWORD iPenStyle, DWORD cWidth, const LOGBRUSH *plbrush, DWORD cStyle,
                                   const DWORD *pstyle);
WINGDIAPI HBRUSH WINAPI CreateSolidBrush(COLORREF color);
WINGDIAPI HBRUSH WINAPI CreateHatchBrush(int iHatch, COLORREF color);
WINGDIAPI HBRUSH WINAPI CreatePatternBrush(HBITMAP hbm);
WINGDIAPI HBRUSH WINAPI CreateDIBPatternBrush(HGLOBAL h, UINT iUsage);
WINGDIAPI HBRUSH WINAPI CreateDIBPatternBrushPt(const void *lpPackedDIB, UINT iUsage);
WINGDIAPI HBRUSH WINAPI CreateBrushIndirect(const LOGBRUSH *plbrush);
WINGDIAPI HFONT WINAPI CreateFontA(int cHeight, int cWidth, int cEscapement, int cOrientation, int cWeight,
                                   DWORD bItalic, DWORD bUnderline, DWORD bStrikeOut, DWORD iCharSet,
                                   DWORD iOutPrecision, DWORD iClipPrecision, DWORD iQuality,
                                   DWORD iPitchAndFamily, LPCSTR pszFaceName);
WINGDIAPI HFONT WINAPI CreateFontW(int cHeight, int cWidth, int cEscapement, int cOrientation, int cWeight,
                                   DWORD bItalic, DWORD bUnderline, DWORD bStrikeOut, DWORD iCharSet,
                                   DWORD iOutPrecision, DWORD iClipPrecision, DWORD iQuality,
                                   DWORD iPitchAndFamily, LPCWSTR pszFaceName);
WINGDIAPI HFONT WINAPI CreateFontIndirectA(const LOGFONTA *lplf);
WINGDIAPI HFONT WINAPI CreateFontIndirectW(const LOGFONTW *lplf);
WINGDIAPI int WINAPI GetObjectA(HANDLE h, int c, LPVOID pv);
WINGDIAPI int WINAPI GetObjectW(HANDLE h, int c, LPVOID pv);
WINGDIAPI DWORD WINAPI GetObjectType(HGDIOBJ h);
WINGDIAPI HGDIOBJ WINAPI GetStockObject(int i);
WINGDIAPI BOOL WINAPI DeleteObject(HGDIOBJ ho);
WINGDIAPI HGDIOBJ WINAPI SelectObject(HDC hdc, HGDIOBJ h);
WINGDIAPI HGDIOBJ WINAPI GetCurrentObject(HDC hdc, UINT type);
WINGDIAPI BOOL WINAPI UnrealizeObject(HGDIOBJ h);
#ifdef UNICODE
#define CreateFont CreateFontW
#define CreateFontIndirect CreateFontIndirectW
#define GetObject GetObjectW
#else
#define CreateFont CreateFontA
#define CreateFontIndirect CreateFontIndirectA
#define GetObject GetObjectA
#endif

/* ---- Bitmaps --------------------------------------------------------- */
WINGDIAPI HBITMAP WINAPI CreateBitmap(int nWidth, int nHeight, UINT nPlanes, UINT nBitCount,
                                      const void *lpBits);
WINGDIAPI HBITMAP WINAPI CreateBitmapIndirect(const BITMAP *pbm);
WINGDIAPI HBITMAP WINAPI CreateCompatibleBitmap(HDC hdc, int cx, int cy);
WINGDIAPI HBITMAP WINAPI CreateDIBitmap(HDC hdc, const BITMAPINFOHEADER *pbmih, DWORD flInit,
                                        const void *pjBits, const BITMAPINFO *pbmi, UINT iUsage);
WINGDIAPI HBITMAP WINAPI CreateDIBSection(HDC hdc, const BITMAPINFO *pbmi, UINT usage, void **ppvBits,
                                          HANDLE hSection, DWORD offset);
WINGDIAPI int WINAPI GetDIBits(HDC hdc, HBITMAP hbm, UINT start, UINT cLines, LPVOID lpvBits,
                               LPBITMAPINFO lpbmi, UINT usage);
WINGDIAPI int WINAPI SetDIBits(HDC hdc, HBITMAP hbm, UINT start, UINT cLines, const void *lpBits,
                               const BITMAPINFO *lpbmi, UINT ColorUse);
WINGDIAPI LONG WINAPI GetBitmapBits(HBITMAP hbit, LONG cb, LPVOID lpvBits);
WINGDIAPI LONG WINAPI SetBitmapBits(HBITMAP hbm, DWORD cb, const void *pvBits);
WINGDIAPI BOOL WINAPI GetBitmapDimensionEx(HBITMAP hbit, LPSIZE lpsize);
WINGDIAPI BOOL WINAPI SetBitmapDimensionEx(HBITMAP hbm, int w, int h, LPSIZE lpsz);

/* ---- Palettes -------------------------------------------------------- */
WINGDIAPI HPALETTE WINAPI CreatePalette(const LOGPALETTE *plpal);
WINGDIAPI HPALETTE WINAPI CreateHalftonePalette(HDC hdc);
WINGDIAPI HPALETTE WINAPI SelectPalette(HDC hdc, HPALETTE hPal, BOOL bForceBkgd);
WINGDIAPI UINT WINAPI RealizePalette(HDC hdc);
WINGDIAPI UINT WINAPI GetPaletteEntries(HPALETTE hpal, UINT iStart, UINT cEntries, LPPALETTEENTRY pPalEntries);
WINGDIAPI UINT WINAPI SetPaletteEntries(HPALETTE hpal, UINT iStart, UINT cEntries,
                                        const PALETTEENTRY *pPalEntries);
WINGDIAPI COLORREF WINAPI GetNearestColor(HDC hdc, COLORREF color);
WINGDIAPI UINT WINAPI GetNearestPaletteIndex(HPALETTE h, COLORREF color);
WINGDIAPI UINT WINAPI GetSystemPaletteEntries(HDC hdc, UINT iStart, UINT cEntries, LPPALETTEENTRY pPalEntries);
WINGDIAPI BOOL WINAPI AnimatePalette(HPALETTE hPal, UINT iStartIndex, UINT cEntries, const PALETTEENTRY *ppe);
WINGDIAPI BOOL WINAPI ResizePalette(HPALETTE hpal, UINT n);
WINGDIAPI UINT WINAPI GetSystemPaletteUse(HDC hdc);
WINGDIAPI BOOL WINAPI UpdateColors(HDC hdc);

/* ---- Regions and clipping -------------------------------------------- */
WINGDIAPI HRGN WINAPI CreateRectRgn(int x1, int y1, int x2, int y2);
WINGDIAPI HRGN WINAPI CreateRectRgnIndirect(const RECT *lprect);
WINGDIAPI HRGN WINAPI CreateRoundRectRgn(int x1, int y1, int x2, int y2, int w, int h);
WINGDIAPI HRGN WINAPI CreateEllipticRgn(int x1, int y1, int x2, int y2);
WINGDIAPI HRGN WINAPI CreateEllipticRgnIndirect(const RECT *lprect);
WINGDIAPI HRGN WINAPI CreatePolygonRgn(const POINT *pptl, int cPoint, int iMode);
WINGDIAPI HRGN WINAPI CreatePolyPolygonRgn(const POINT *pptl, const INT *pc, int cPoly, int iMode);
WINGDIAPI HRGN WINAPI ExtCreateRegion(const XFORM *lpx, DWORD nCount, const RGNDATA *lpData);
WINGDIAPI DWORD WINAPI GetRegionData(HRGN hrgn, DWORD nCount, LPRGNDATA lpRgnData);
WINGDIAPI int WINAPI CombineRgn(HRGN hrgnDst, HRGN hrgnSrc1, HRGN hrgnSrc2, int iMode);
WINGDIAPI int WINAPI OffsetRgn(HRGN hrgn, int x, int y);
WINGDIAPI BOOL WINAPI EqualRgn(HRGN hrgn1, HRGN hrgn2);
WINGDIAPI BOOL WINAPI PtInRegion(HRGN hrgn, int x, int y);
WINGDIAPI BOOL WINAPI RectInRegion(HRGN hrgn, const RECT *lprect);
WINGDIAPI int WINAPI GetRgnBox(HRGN hrgn, LPRECT lprc);
WINGDIAPI BOOL WINAPI SetRectRgn(HRGN hrgn, int left, int top, int right, int bottom);
WINGDIAPI BOOL WINAPI FillRgn(HDC hdc, HRGN hrgn, HBRUSH hbr);
WINGDIAPI BOOL WINAPI FrameRgn(HDC hdc, HRGN hrgn, HBRUSH hbr, int w, int h);
WINGDIAPI BOOL WINAPI PaintRgn(HDC hdc, HRGN hrgn);
WINGDIAPI BOOL WINAPI InvertRgn(HDC hdc, HRGN hrgn);
WINGDIAPI int WINAPI SelectClipRgn(HDC hdc, HRGN hrgn);
WINGDIAPI int WINAPI ExtSelectClipRgn(HDC hdc, HRGN hrgn, int mode);
WINGDIAPI int WINAPI IntersectClipRect(HDC hdc, int left, int top, int right, int bottom);
WINGDIAPI int WINAPI ExcludeClipRect(HDC hdc, int left, int top, int right, int bottom);
WINGDIAPI int WINAPI OffsetClipRgn(HDC hdc, int x, int y);
WINGDIAPI int WINAPI GetClipBox(HDC hdc, LPRECT lprect);
WINGDIAPI int WINAPI GetClipRgn(HDC hdc, HRGN hrgn);
WINGDIAPI BOOL WINAPI RectVisible(HDC hdc, const RECT *lprect);
WINGDIAPI BOOL WINAPI PtVisible(HDC hdc, int x, int y);

/* ---- Device contexts ------------------------------------------------- */
WINGDIAPI HDC WINAPI CreateCompatibleDC(HDC hdc);
WINGDIAPI HDC WINAPI CreateDCA(LPCSTR pwszDriver, LPCSTR pwszDevice, LPCSTR pszPort, const DEVMODEA *pdm);
WINGDIAPI HDC WINAPI CreateDCW(LPCWSTR pwszDriver, LPCWSTR pwszDevice, LPCWSTR pszPort, const DEVMODEW *pdm);
WINGDIAPI HDC WINAPI CreateICA(LPCSTR pszDriver, LPCSTR pszDevice, LPCSTR pszPort, const DEVMODEA *pdm);
WINGDIAPI HDC WINAPI CreateICW(LPCWSTR pszDriver, LPCWSTR pszDevice, LPCWSTR pszPort, const DEVMODEW *pdm);
WINGDIAPI BOOL WINAPI DeleteDC(HDC hdc);
WINGDIAPI HDC WINAPI ResetDCA(HDC hdc, const DEVMODEA *lpdm);
WINGDIAPI HDC WINAPI ResetDCW(HDC hdc, const DEVMODEW *lpdm);
WINGDIAPI int WINAPI SaveDC(HDC hdc);
WINGDIAPI BOOL WINAPI RestoreDC(HDC hdc, int nSavedDC);
WINGDIAPI int WINAPI GetDeviceCaps(HDC hdc, int index);
WINGDIAPI BOOL WINAPI GetDCOrgEx(HDC hdc, LPPOINT lppt);
WINGDIAPI COLORREF WINAPI GetDCBrushColor(HDC hdc);
WINGDIAPI COLORREF WINAPI SetDCBrushColor(HDC hdc, COLORREF color);
WINGDIAPI COLORREF WINAPI GetDCPenColor(HDC hdc);
WINGDIAPI COLORREF WINAPI SetDCPenColor(HDC hdc, COLORREF color);
WINGDIAPI BOOL WINAPI GdiFlush(void);
WINGDIAPI DWORD WINAPI GdiSetBatchLimit(DWORD dw);
#ifdef UNICODE
#define CreateDC CreateDCW
#define CreateIC CreateICW
#define ResetDC ResetDCW
#else
#define CreateDC CreateDCA
#define CreateIC CreateICA
#define ResetDC ResetDCA
#endif

/* ---- Coordinate spaces and transforms -------------------------------- */
WINGDIAPI int WINAPI SetMapMode(HDC hdc, int iMode);
WINGDIAPI int WINAPI GetMapMode(HDC hdc);
WINGDIAPI BOOL WINAPI SetViewportOrgEx(HDC hdc, int x, int y, LPPOINT lppt);
/* The same as SetViewportOrgEx, under its old name. */
WINGDIAPI BOOL WINAPI SetViewportOrg(HDC hdc, int x, int y, LPPOINT lppt);
WINGDIAPI BOOL WINAPI GetViewportOrgEx(HDC hdc, LPPOINT lppoint);
WINGDIAPI BOOL WINAPI OffsetViewportOrgEx(HDC hdc, int x, int y, LPPOINT lppt);
WINGDIAPI BOOL WINAPI SetViewportExtEx(HDC hdc, int x, int y, LPSIZE lpsz);
WINGDIAPI BOOL WINAPI GetViewportExtEx(HDC hdc, LPSIZE lpsize);
WINGDIAPI BOOL WINAPI ScaleViewportExtEx(HDC hdc, int xn, int dx, int yn, int yd, LPSIZE lpsz);
WINGDIAPI BOOL WINAPI SetWindowOrgEx(HDC hdc, int x, int y, LPPOINT lppt);
WINGDIAPI BOOL WINAPI GetWindowOrgEx(HDC hdc, LPPOINT lppoint);
WINGDIAPI BOOL WINAPI OffsetWindowOrgEx(HDC hdc, int x, int y, LPPOINT lppt);
WINGDIAPI BOOL WINAPI SetWindowExtEx(HDC hdc, int x, int y, LPSIZE lpsz);
WINGDIAPI BOOL WINAPI GetWindowExtEx(HDC hdc, LPSIZE lpsize);
WINGDIAPI BOOL WINAPI ScaleWindowExtEx(HDC hdc, int xn, int xd, int yn, int yd, LPSIZE lpsz);
WINGDIAPI BOOL WINAPI LPtoDP(HDC hdc, LPPOINT lppt, int c);
WINGDIAPI BOOL WINAPI DPtoLP(HDC hdc, LPPOINT lppt, int c);
WINGDIAPI int WINAPI SetGraphicsMode(HDC hdc, int iMode);
WINGDIAPI int WINAPI GetGraphicsMode(HDC hdc);
WINGDIAPI BOOL WINAPI SetWorldTransform(HDC hdc, const XFORM *lpxf);
WINGDIAPI BOOL WINAPI GetWorldTransform(HDC hdc, LPXFORM lpxf);
WINGDIAPI BOOL WINAPI ModifyWorldTransform(HDC hdc, const XFORM *lpxf, DWORD mode);
WINGDIAPI BOOL WINAPI CombineTransform(LPXFORM lpxfOut, const XFORM *lpxf1, const XFORM *lpxf2);
WINGDIAPI DWORD WINAPI SetLayout(HDC hdc, DWORD l);
WINGDIAPI DWORD WINAPI GetLayout(HDC hdc);

/* ---- Lines and shapes ------------------------------------------------ */
WINGDIAPI BOOL WINAPI MoveToEx(HDC hdc, int x, int y, LPPOINT lppt);
WINGDIAPI BOOL WINAPI LineTo(HDC hdc, int x, int y);
WINGDIAPI BOOL WINAPI Polyline(HDC hdc, const POINT *apt, int cpt);
WINGDIAPI BOOL WINAPI PolylineTo(HDC hdc, const POINT *apt, DWORD cpt);
WINGDIAPI BOOL WINAPI PolyPolyline(HDC hdc, const POINT *apt, const DWORD *asz, DWORD csz);
WINGDIAPI BOOL WINAPI Polygon(HDC hdc, const POINT *apt, int cpt);
WINGDIAPI BOOL WINAPI PolyPolygon(HDC hdc, const POINT *apt, const INT *asz, int csz);
WINGDIAPI BOOL WINAPI PolyBezier(HDC hdc, const POINT *apt, DWORD cpt);
WINGDIAPI BOOL WINAPI PolyBezierTo(HDC hdc, const POINT *apt, DWORD cpt);
WINGDIAPI BOOL WINAPI Rectangle(HDC hdc, int left, int top, int right, int bottom);
WINGDIAPI BOOL WINAPI RoundRect(HDC hdc, int left, int top, int right, int bottom, int width, int height);
WINGDIAPI BOOL WINAPI Ellipse(HDC hdc, int left, int top, int right, int bottom);
WINGDIAPI BOOL WINAPI Arc(HDC hdc, int x1, int y1, int x2, int y2, int x3, int y3, int x4, int y4);
WINGDIAPI BOOL WINAPI ArcTo(HDC hdc, int left, int top, int right, int bottom, int xr1, int yr1, int xr2,
                            int yr2);
WINGDIAPI BOOL WINAPI Chord(HDC hdc, int x1, int y1, int x2, int y2, int x3, int y3, int x4, int y4);
WINGDIAPI BOOL WINAPI Pie(HDC hdc, int left, int top, int right, int bottom, int xr1, int yr1, int xr2,
                          int yr2);
WINGDIAPI BOOL WINAPI AngleArc(HDC hdc, int x, int y, DWORD r, FLOAT StartAngle, FLOAT SweepAngle);
WINGDIAPI int WINAPI SetArcDirection(HDC hdc, int dir);
WINGDIAPI int WINAPI GetArcDirection(HDC hdc);
WINGDIAPI COLORREF WINAPI SetPixel(HDC hdc, int x, int y, COLORREF color);
WINGDIAPI BOOL WINAPI SetPixelV(HDC hdc, int x, int y, COLORREF color);
WINGDIAPI COLORREF WINAPI GetPixel(HDC hdc, int x, int y);
WINGDIAPI BOOL WINAPI FloodFill(HDC hdc, int x, int y, COLORREF color);
WINGDIAPI BOOL WINAPI ExtFloodFill(HDC hdc, int x, int y, COLORREF color, UINT type);

/* ---- Block transfers ------------------------------------------------- */
WINGDIAPI BOOL WINAPI PatBlt(HDC hdc, int x, int y, int w, int h, DWORD rop);
WINGDIAPI BOOL WINAPI BitBlt(HDC hdc, int x, int y, int cx, int cy, HDC hdcSrc, int x1, int y1, DWORD rop);
WINGDIAPI BOOL WINAPI StretchBlt(HDC hdcDest, int xDest, int yDest, int wDest, int hDest, HDC hdcSrc,
                                 int xSrc, int ySrc, int wSrc, int hSrc, DWORD rop);
WINGDIAPI BOOL WINAPI MaskBlt(HDC hdcDest, int xDest, int yDest, int width, int height, HDC hdcSrc,
                              int xSrc, int ySrc, HBITMAP hbmMask, int xMask, int yMask, DWORD rop);
WINGDIAPI BOOL WINAPI PlgBlt(HDC hdcDest, const POINT *lpPoint, HDC hdcSrc, int xSrc, int ySrc, int width,
                             int height, HBITMAP hbmMask, int xMask, int yMask);
WINGDIAPI BOOL WINAPI TransparentBlt(HDC hdcDest, int xoriginDest, int yoriginDest, int wDest, int hDest,
                                     HDC hdcSrc, int xoriginSrc, int yoriginSrc, int wSrc, int hSrc,
                                     UINT crTransparent);
WINGDIAPI BOOL WINAPI AlphaBlend(HDC hdcDest, int xoriginDest, int yoriginDest, int wDest, int hDest,
                                 HDC hdcSrc, int xoriginSrc, int yoriginSrc, int wSrc, int hSrc,
                                 BLENDFUNCTION ftn);
WINGDIAPI BOOL WINAPI GradientFill(HDC hdc, PTRIVERTEX pVertex, ULONG nVertex, PVOID pMesh, ULONG nMesh,
                                   ULONG ulMode);
WINGDIAPI int WINAPI StretchDIBits(HDC hdc, int xDest, int yDest, int DestWidth, int DestHeight, int xSrc,
                                   int ySrc, int SrcWidth, int SrcHeight, const void *lpBits,
                                   const BITMAPINFO *lpbmi, UINT iUsage, DWORD rop);
WINGDIAPI int WINAPI SetDIBitsToDevice(HDC hdc, int xDest, int yDest, DWORD w, DWORD h, int xSrc, int ySrc,
                                       UINT StartScan, UINT cLines, const void *lpvBits,
                                       const BITMAPINFO *lpbmi, UINT ColorUse);

/* ---- Attributes ------------------------------------------------------ */
WINGDIAPI COLORREF WINAPI SetBkColor(HDC hdc, COLORREF color);
WINGDIAPI COLORREF WINAPI GetBkColor(HDC hdc);
WINGDIAPI int WINAPI SetBkMode(HDC hdc, int mode);
WINGDIAPI int WINAPI GetBkMode(HDC hdc);
WINGDIAPI COLORREF WINAPI SetTextColor(HDC hdc, COLORREF color);
WINGDIAPI COLORREF WINAPI GetTextColor(HDC hdc);
WINGDIAPI int WINAPI SetROP2(HDC hdc, int rop2);
WINGDIAPI int WINAPI GetROP2(HDC hdc);
WINGDIAPI int WINAPI SetPolyFillMode(HDC hdc, int mode);
WINGDIAPI int WINAPI GetPolyFillMode(HDC hdc);
WINGDIAPI int WINAPI SetStretchBltMode(HDC hdc, int mode);
WINGDIAPI DWORD WINAPI SetMapperFlags(HDC hdc, DWORD flags);
WINGDIAPI int WINAPI GetStretchBltMode(HDC hdc);
WINGDIAPI UINT WINAPI SetTextAlign(HDC hdc, UINT align);
WINGDIAPI UINT WINAPI GetTextAlign(HDC hdc);
WINGDIAPI int WINAPI SetTextCharacterExtra(HDC hdc, int extra);
WINGDIAPI int WINAPI GetTextCharacterExtra(HDC hdc);
WINGDIAPI BOOL WINAPI SetTextJustification(HDC hdc, int extra, int count);
WINGDIAPI BOOL WINAPI SetBrushOrgEx(HDC hdc, int x, int y, LPPOINT lppt);
WINGDIAPI BOOL WINAPI GetBrushOrgEx(HDC hdc, LPPOINT lppt);
WINGDIAPI BOOL WINAPI GetCurrentPositionEx(HDC hdc, LPPOINT lppt);

/* ---- Text and fonts -------------------------------------------------- */
WINGDIAPI BOOL WINAPI TextOutA(HDC hdc, int x, int y, LPCSTR lpString, int c);
WINGDIAPI BOOL WINAPI TextOutW(HDC hdc, int x, int y, LPCWSTR lpString, int c);
WINGDIAPI BOOL WINAPI ExtTextOutA(HDC hdc, int x, int y, UINT options, const RECT *lprect, LPCSTR lpString,
                                  UINT c, const INT *lpDx);
WINGDIAPI BOOL WINAPI ExtTextOutW(HDC hdc, int x, int y, UINT options, const RECT *lprect, LPCWSTR lpString,
                                  UINT c, const INT *lpDx);
WINGDIAPI BOOL WINAPI GetTextExtentPoint32A(HDC hdc, LPCSTR lpString, int c, LPSIZE psizl);
WINGDIAPI BOOL WINAPI GetTextExtentPoint32W(HDC hdc, LPCWSTR lpString, int c, LPSIZE psizl);
WINGDIAPI BOOL WINAPI GetTextExtentPointA(HDC hdc, LPCSTR lpString, int c, LPSIZE lpsz);
WINGDIAPI BOOL WINAPI GetTextExtentPointW(HDC hdc, LPCWSTR lpString, int c, LPSIZE lpsz);
WINGDIAPI BOOL WINAPI GetTextExtentExPointA(HDC hdc, LPCSTR lpszString, int cchString, int nMaxExtent,
                                            LPINT lpnFit, LPINT lpnDx, LPSIZE lpSize);
WINGDIAPI BOOL WINAPI GetTextExtentExPointW(HDC hdc, LPCWSTR lpszString, int cchString, int nMaxExtent,
                                            LPINT lpnFit, LPINT lpnDx, LPSIZE lpSize);
WINGDIAPI BOOL WINAPI GetTextMetricsA(HDC hdc, LPTEXTMETRICA lptm);
WINGDIAPI BOOL WINAPI GetTextMetricsW(HDC hdc, LPTEXTMETRICW lptm);
WINGDIAPI int WINAPI GetTextFaceA(HDC hdc, int c, LPSTR lpName);
WINGDIAPI int WINAPI GetTextFaceW(HDC hdc, int c, LPWSTR lpName);
WINGDIAPI int WINAPI GetTextCharset(HDC hdc);
WINGDIAPI int WINAPI GetTextCharsetInfo(HDC hdc, LPFONTSIGNATURE lpSig, DWORD dwFlags);
WINGDIAPI BOOL WINAPI TranslateCharsetInfo(DWORD *lpSrc, LPCHARSETINFO lpCs, DWORD dwFlags);
WINGDIAPI BOOL WINAPI GetCharWidthA(HDC hdc, UINT iFirst, UINT iLast, LPINT lpBuffer);
WINGDIAPI BOOL WINAPI GetCharWidthW(HDC hdc, UINT iFirst, UINT iLast, LPINT lpBuffer);
WINGDIAPI BOOL WINAPI GetCharWidth32A(HDC hdc, UINT iFirst, UINT iLast, LPINT lpBuffer);
WINGDIAPI BOOL WINAPI GetCharWidth32W(HDC hdc, UINT iFirst, UINT iLast, LPINT lpBuffer);
WINGDIAPI BOOL WINAPI GetCharABCWidthsA(HDC hdc, UINT wFirst, UINT wLast, LPABC lpABC);
WINGDIAPI BOOL WINAPI GetCharABCWidthsW(HDC hdc, UINT wFirst, UINT wLast, LPABC lpABC);
WINGDIAPI UINT WINAPI GetOutlineTextMetricsA(HDC hdc, UINT cjCopy, LPOUTLINETEXTMETRICA potm);
WINGDIAPI UINT WINAPI GetOutlineTextMetricsW(HDC hdc, UINT cjCopy, LPOUTLINETEXTMETRICW potm);
WINGDIAPI DWORD WINAPI GetGlyphOutlineA(HDC hdc, UINT uChar, UINT fuFormat, LPGLYPHMETRICS lpgm,
                                        DWORD cjBuffer, LPVOID pvBuffer, const MAT2 *lpmat2);
WINGDIAPI DWORD WINAPI GetGlyphOutlineW(HDC hdc, UINT uChar, UINT fuFormat, LPGLYPHMETRICS lpgm,
                                        DWORD cjBuffer, LPVOID pvBuffer, const MAT2 *lpmat2);
WINGDIAPI DWORD WINAPI GetKerningPairsA(HDC hdc, DWORD nPairs, LPKERNINGPAIR lpKernPair);
WINGDIAPI DWORD WINAPI GetKerningPairsW(HDC hdc, DWORD nPairs, LPKERNINGPAIR lpKernPair);
WINGDIAPI DWORD WINAPI GetFontData(HDC hdc, DWORD dwTable, DWORD dwOffset, PVOID pvBuffer, DWORD cjBuffer);
WINGDIAPI int WINAPI EnumFontFamiliesA(HDC hdc, LPCSTR lpLogfont, FONTENUMPROCA lpProc, LPARAM lParam);
WINGDIAPI int WINAPI EnumFontFamiliesW(HDC hdc, LPCWSTR lpLogfont, FONTENUMPROCW lpProc, LPARAM lParam);
WINGDIAPI int WINAPI EnumFontFamiliesExA(HDC hdc, LPLOGFONTA lpLogfont, FONTENUMPROCA lpProc, LPARAM lParam,
                                         DWORD dwFlags);
WINGDIAPI int WINAPI EnumFontFamiliesExW(HDC hdc, LPLOGFONTW lpLogfont, FONTENUMPROCW lpProc, LPARAM lParam,
                                         DWORD dwFlags);
WINGDIAPI int WINAPI EnumFontsA(HDC hdc, LPCSTR lpLogfont, FONTENUMPROCA lpProc, LPARAM lParam);
WINGDIAPI int WINAPI EnumFontsW(HDC hdc, LPCWSTR lpLogfont, FONTENUMPROCW lpProc, LPARAM lParam);
WINGDIAPI int WINAPI AddFontResourceA(LPCSTR lpFileName);
WINGDIAPI BOOL WINAPI RemoveFontResourceA(LPCSTR lpFileName);
WINGDIAPI DWORD WINAPI GetCharacterPlacementA(HDC hdc, LPCSTR lpString, int nCount, int nMexExtent,
                                              LPGCP_RESULTSA lpResults, DWORD dwFlags);
WINGDIAPI DWORD WINAPI GetCharacterPlacementW(HDC hdc, LPCWSTR lpString, int nCount, int nMexExtent,
                                              LPGCP_RESULTSW lpResults, DWORD dwFlags);
#ifdef UNICODE
#define TextOut TextOutW
#define ExtTextOut ExtTextOutW
#define GetTextExtentPoint32 GetTextExtentPoint32W
#define GetTextExtentPoint GetTextExtentPointW
#define GetTextExtentExPoint GetTextExtentExPointW
#define GetTextMetrics GetTextMetricsW
#define GetTextFace GetTextFaceW
#define GetCharWidth GetCharWidthW
#define GetCharWidth32 GetCharWidth32W
#define GetCharABCWidths GetCharABCWidthsW
#define GetOutlineTextMetrics GetOutlineTextMetricsW
#define GetGlyphOutline GetGlyphOutlineW
#define GetKerningPairs GetKerningPairsW
#define EnumFontFamilies EnumFontFamiliesW
#define EnumFontFamiliesEx EnumFontFamiliesExW
#define EnumFonts EnumFontsW
#define GetCharacterPlacement GetCharacterPlacementW
#else
#define TextOut TextOutA
#define ExtTextOut ExtTextOutA
#define GetTextExtentPoint32 GetTextExtentPoint32A
#define GetTextExtentPoint GetTextExtentPointA
#define GetTextExtentExPoint GetTextExtentExPointA
#define GetTextMetrics GetTextMetricsA
#define GetTextFace GetTextFaceA
#define GetCharWidth GetCharWidthA
#define GetCharWidth32 GetCharWidth32A
#define GetCharABCWidths GetCharABCWidthsA
#define GetOutlineTextMetrics GetOutlineTextMetricsA
#define GetGlyphOutline GetGlyphOutlineA
#define GetKerningPairs GetKerningPairsA
#define EnumFontFamilies EnumFontFamiliesA
#define EnumFontFamiliesEx EnumFontFamiliesExA
#define EnumFonts EnumFontsA
#define GetCharacterPlacement GetCharacterPlacementA
#endif
#ifndef UNICODE
#define AddFontResource AddFontResourceA
#define RemoveFontResource RemoveFontResourceA
#endif

/* ---- Paths ----------------------------------------------------------- */
WINGDIAPI BOOL WINAPI BeginPath(HDC hdc);
WINGDIAPI BOOL WINAPI EndPath(HDC hdc);
WINGDIAPI BOOL WINAPI FillPath(HDC hdc);
WINGDIAPI BOOL WINAPI StrokePath(HDC hdc);
WINGDIAPI BOOL WINAPI StrokeAndFillPath(HDC hdc);
WINGDIAPI BOOL WINAPI AbortPath(HDC hdc);
WINGDIAPI BOOL WINAPI CloseFigure(HDC hdc);
WINGDIAPI HRGN WINAPI PathToRegion(HDC hdc);
WINGDIAPI BOOL WINAPI SelectClipPath(HDC hdc, int mode);

/* ---- Metafiles ------------------------------------------------------- */
WINGDIAPI HDC WINAPI CreateMetaFileA(LPCSTR pszFile);
WINGDIAPI HDC WINAPI CreateMetaFileW(LPCWSTR pszFile);
WINGDIAPI HMETAFILE WINAPI CloseMetaFile(HDC hdc);
WINGDIAPI BOOL WINAPI DeleteMetaFile(HMETAFILE hmf);
WINGDIAPI BOOL WINAPI PlayMetaFile(HDC hdc, HMETAFILE hmf);
WINGDIAPI BOOL WINAPI PlayMetaFileRecord(HDC hdc, LPHANDLETABLE lpHandleTable, LPMETARECORD lpMR, UINT noObjs);
WINGDIAPI BOOL WINAPI EnumMetaFile(HDC hdc, HMETAFILE hmf, MFENUMPROC proc, LPARAM param);
WINGDIAPI HMETAFILE WINAPI GetMetaFileA(LPCSTR lpName);
WINGDIAPI HMETAFILE WINAPI GetMetaFileW(LPCWSTR lpName);
WINGDIAPI UINT WINAPI GetMetaFileBitsEx(HMETAFILE hMF, UINT cbBuffer, LPVOID lpData);
WINGDIAPI HMETAFILE WINAPI SetMetaFileBitsEx(UINT cbBuffer, const BYTE *lpData);
WINGDIAPI HMETAFILE WINAPI CopyMetaFileA(HMETAFILE hmf, LPCSTR lpFileName);
WINGDIAPI HMETAFILE WINAPI CopyMetaFileW(HMETAFILE hmf, LPCWSTR lpFileName);

/* ---- Printing -------------------------------------------------------- */
WINGDIAPI int WINAPI StartDocA(HDC hdc, const DOCINFOA *lpdi);
WINGDIAPI int WINAPI StartDocW(HDC hdc, const DOCINFOW *lpdi);
WINGDIAPI int WINAPI EndDoc(HDC hdc);
WINGDIAPI int WINAPI StartPage(HDC hdc);
WINGDIAPI int WINAPI EndPage(HDC hdc);
WINGDIAPI int WINAPI AbortDoc(HDC hdc);
WINGDIAPI int WINAPI SetAbortProc(HDC hdc, ABORTPROC proc);
WINGDIAPI int WINAPI Escape(HDC hdc, int iEscape, int cjIn, LPCSTR pvIn, LPVOID pvOut);
WINGDIAPI int WINAPI ExtEscape(HDC hdc, int iEscape, int cjInput, LPCSTR lpInData, int cjOutput,
                               LPSTR lpOutData);
#ifdef UNICODE
#define CreateMetaFile CreateMetaFileW
#define GetMetaFile GetMetaFileW
#define CopyMetaFile CopyMetaFileW
#define StartDoc StartDocW
#else
#define CreateMetaFile CreateMetaFileA
#define GetMetaFile GetMetaFileA
#define CopyMetaFile CopyMetaFileA
#define StartDoc StartDocA
#endif

#endif /* RC_INVOKED */
#endif /* VORLAN_WINGDI_H */
