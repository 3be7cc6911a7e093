#include "model/oxdata/section/CBar.h"

namespace Orlix::Data {

CBar::CBar(Vec2<double> position, double diameter, double area, int grade, Preload preload)
    : position_(position), diameter_(diameter), area_(area), grade_(grade), preload_(preload) {}

}  // namespace Orlix::Data
