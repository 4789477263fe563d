#include "shell/win32/drawn_pictures.h"

#include <utility>

#include "resources/resource.h"
#include "toolkit/win32/png_resource.h"

// The pictures of each set have consecutive numbers, as those of ePicture.
static const struct
{
    int      m_nDpi;
    unsigned m_nFirst;
} s_Sets[] = {{120, IDP_FACE_125}, {144, IDP_FACE_150}, {192, IDP_FACE_200}, {288, IDP_FACE_300}};
static const int kSets = sizeof s_Sets / sizeof *s_Sets;

static_assert(IDP_WELCOME_125 - IDP_FACE_125 == piWelcome);
static_assert(IDP_WELCOME_150 - IDP_FACE_150 == piWelcome);
static_assert(IDP_WELCOME_200 - IDP_FACE_200 == piWelcome);
static_assert(IDP_WELCOME_300 - IDP_FACE_300 == piWelcome);

static const unsigned s_Usual[] = {IDB_FACE,    IDB_KEYS,  IDB_SWITCHES,
                                   IDB_TOOLBAR, IDB_LAMPS, IDB_WELCOME};

cDrawnPicture LoadDrawnPicture(ePicture nPicture, const cScale &Scale)
{
    int nSet = 0;
    while (nSet + 1 < kSets && s_Sets[nSet].m_nDpi < Scale.Dpi())
        nSet++;
    if (Scale.Dpi() > kUsualDpi)
    {
        cGdiBitmap Large = LoadPngResource(s_Sets[nSet].m_nFirst + static_cast<unsigned>(nPicture));
        if (Large)
            return {std::move(Large), cScale(s_Sets[nSet].m_nDpi)};
    }
    return {cGdiBitmap(LoadBitmapA(ProgramInstance(), MAKEINTRESOURCEA(s_Usual[nPicture]))),
            cScale()};
}
