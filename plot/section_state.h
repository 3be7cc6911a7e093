#pragma once

#include <string>

#include "model/vldata/document/CVelmoData.h"
#include "plot/SectionView.h"

namespace Orlix::Plot {

/// Puts the strains and stresses of a case into a view: its state and what its components and bars
/// have of it.
/// @param state  one that the task computes, not `reported`
/// @param view   with the components and the records of the case
/// @return why there is no such state, in words; empty: it is there
/// @throws std::invalid_argument, with a text for the user, for a state that the case's concrete
/// does not have
std::string FillState(const Data::CVelmoData& document, const Data::Velmo9::VelmoSection& section,
                      const Data::Velmo9::AnalysisTask& task, int iCase, SectionState state,
                      SectionView& view);

}  // namespace Orlix::Plot
