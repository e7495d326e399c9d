// Small tables of per-country and per-locale values.
#include "locale_tables.h"

namespace brano {

namespace {

struct RegionCode {
    const char *region;
    DWORD code;
};

const RegionCode kDiallingCodes[] = {
    {"US", 1},   {"CA", 1},   {"PR", 1},   {"GB", 44},  {"DE", 49},  {"FR", 33},   {"IT", 39},
    {"ES", 34},  {"PT", 351}, {"NL", 31},  {"BE", 32},  {"LU", 352}, {"CH", 41},   {"AT", 43},
    {"LI", 423}, {"SE", 46},  {"NO", 47},  {"DK", 45},  {"FI", 358}, {"IS", 354},  {"IE", 353},
    {"PL", 48},  {"CZ", 420}, {"SK", 421}, {"HU", 36},  {"RO", 40},  {"BG", 359},  {"GR", 30},
    {"CY", 357}, {"MT", 356}, {"TR", 90},  {"RU", 7},   {"KZ", 7},   {"UA", 380},  {"BY", 375},
    {"LT", 370}, {"LV", 371}, {"EE", 372}, {"HR", 385}, {"SI", 386}, {"RS", 381},  {"BA", 387},
    {"MK", 389}, {"AL", 355}, {"IL", 972}, {"SA", 966}, {"AE", 971}, {"QA", 974},  {"KW", 965},
    {"EG", 20},  {"MA", 212}, {"DZ", 213}, {"TN", 216}, {"JO", 962}, {"LB", 961},  {"SY", 963},
    {"IQ", 964}, {"IR", 98},  {"PK", 92},  {"IN", 91},  {"BD", 880}, {"LK", 94},   {"TH", 66},
    {"VN", 84},  {"ID", 62},  {"MY", 60},  {"SG", 65},  {"PH", 63},  {"CN", 86},   {"TW", 886},
    {"HK", 852}, {"MO", 853}, {"JP", 81},  {"KR", 82},  {"AU", 61},  {"NZ", 64},   {"ZA", 27},
    {"NG", 234}, {"KE", 254}, {"MX", 52},  {"BR", 55},  {"AR", 54},  {"CL", 56},   {"CO", 57},
    {"PE", 51},  {"VE", 58},  {"EC", 593}, {"UY", 598}, {"PY", 595}, {"BO", 591},  {"CR", 506},
    {"PA", 507}, {"GT", 502}, {"DO", 1},   {"CU", 53},
};

struct LocaleAbbreviation {
    const char *locale;
    const char *abbreviation;
};

// Locales whose abbreviation is not simply the ISO 639-2 code in capitals.
const LocaleAbbreviation kAbbreviations[] = {
    {"en_US", "ENU"}, {"en_GB", "ENG"}, {"en_AU", "ENA"}, {"en_CA", "ENC"}, {"en_NZ", "ENZ"},
    {"en_IE", "ENI"}, {"en_ZA", "ENS"}, {"en_IN", "ENN"}, {"en_SG", "ENE"}, {"es_ES", "ESN"},
    {"es_MX", "ESM"}, {"es_AR", "ESS"}, {"fr_CA", "FRC"}, {"fr_BE", "FRB"}, {"fr_CH", "FRS"},
    {"fr_LU", "FRL"}, {"de_AT", "DEA"}, {"de_CH", "DES"}, {"de_LU", "DEL"}, {"it_CH", "ITS"},
    {"nl_BE", "NLB"}, {"pt_BR", "PTB"}, {"pt_PT", "PTG"}, {"zh_CN", "CHS"}, {"zh_TW", "CHT"},
    {"zh_HK", "ZHH"}, {"zh_SG", "ZHI"}, {"zh_MO", "ZHM"}, {"sv_SE", "SVE"}, {"sv_FI", "SVF"},
    {"pl_PL", "PLK"}, {"cs_CZ", "CSY"}, {"tr_TR", "TRK"}, {"ar_SA", "ARA"}, {"ar_EG", "ARE"},
    {"nb_NO", "NOR"}, {"nn_NO", "NON"}, {"bg_BG", "BGR"}, {"ro_RO", "ROM"}, {"sk_SK", "SKY"},
    {"lt_LT", "LTH"}, {"lv_LV", "LVI"}, {"et_EE", "ETI"}, {"vi_VN", "VIT"}, {"ms_MY", "MSL"},
    {"he_IL", "HEB"}, {"el_GR", "ELL"}, {"ja_JP", "JPN"}, {"ko_KR", "KOR"}, {"da_DK", "DAN"},
    {"fi_FI", "FIN"}, {"is_IS", "ISL"}, {"sl_SI", "SLV"}, {"hr_HR", "HRV"}, {"sr_RS", "SRM"},
    {"fa_IR", "FAR"}, {"hi_IN", "HIN"}, {"th_TH", "THA"}, {"id_ID", "IND"}, {"uk_UA", "UKR"},
};

} // namespace

DWORD CountryDiallingCode(const std::string &region)
{
    for (const RegionCode &entry : kDiallingCodes) {
        if (region == entry.region)
            return entry.code;
    }
    return 1;
}

std::string WindowsLanguageAbbreviation(const std::string &language, const std::string &region)
{
    std::string key = language + "_" + region;
    for (const LocaleAbbreviation &entry : kAbbreviations) {
        if (key == entry.locale)
            return entry.abbreviation;
    }
    return std::string();
}

} // namespace brano
