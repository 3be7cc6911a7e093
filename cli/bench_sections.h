#pragma once

#include "model/vldata/document/CVelmoData.h"

namespace Orlix::Bench {

/// Documents with one section and one load task without cases.
Data::CVelmoData RectangleDocument();     ///< 300x500, C30/37, eight 20 mm bars
Data::CVelmoData AciRectangleDocument();  ///< the same shape and bars under ACI 318-19
Data::CVelmoData HollowBoxDocument();     ///< 2.0x1.6 m, walls 0.3 m, C40/50, 36 bars of 32 mm

/// A round column of 1.5 m as a polygon of `vertices` sides, C40/50, with `bars` bars of 25 mm.
Data::CVelmoData PolygonDocument(int vertices, int bars);

/// Appends biaxial load cases whose planes are spread over the strain domain and a little beyond,
/// the same ones every time.
/// @param share  what each load is multiplied by
void AddCases(Data::CVelmoData& document, int count, double share = 1.0);

}  // namespace Orlix::Bench
