#include "figure/dashes.h"

#include <iterator>

#include "graph/vantor_data_set.h"

static const double kDash[]       = {5.0, 2.5};
static const double kDot[]        = {1.2, 1.8};
static const double kDashDot[]    = {6.0, 2.0, 1.2, 2.0};
static const double kDashDotDot[] = {6.0, 2.0, 1.2, 2.0, 1.2, 2.0};

std::span<const double> DashesOfStyle(uint32_t nStyle)
{
    static const std::span<const double> s_Styles[] = {{}, kDash, kDot, kDashDot, kDashDotDot};
    static_assert(std::size(s_Styles) == kStyles);

    return nStyle < kStyles ? s_Styles[nStyle] : std::span<const double>();
}
