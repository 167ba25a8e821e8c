// The built-in values the program starts from before Defaults.dat is read: the capacities and
// constants, the settings record, the three preset tables, the colours, the icon sizes and the
// five permanent views.
#pragma once

#include "model/model.h"

namespace karvane {

// The capacities and constants: MaxFans and BlockedRes. MaxAirways and
// UndoCapacity are constants of the program.
void SetBuiltInCapacities(Model& model);

// The settings record (colours and icon sizes included), the preset tables and the names,
// angles and 3D flags of the five permanent views. The view angles follow model.SgnY.
void SetBuiltInSettings(Model& model);

// The names of the permanent views 1 to 5, each with its leading blank.
inline constexpr const char* BuiltInViewNames[6] = {
    "", " 1. Default View", " 2. Plan View 3D", " 3. Long Section", " 4. Cross Section", " 5. Iso View"};

// The value of pi used by every view angle.
inline constexpr double ViewPi = 3.141592654;

} // namespace karvane
