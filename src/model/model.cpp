// Construction of the Model: every table at its full size, empty.
#include "model/model.h"

namespace karvane {

Model::Model()
    : Airways(MaxAirways + 1),
      Levels(LevelRows + 1),
      PrimaryLayers(PrimaryLayerCount + 1),
      SecondaryLayers(SecondLayerCount + 1),
      FloatingTexts(DefaultMaxText + 1),
      SavedViews(SavedViewSlots),
      Fans(DefaultMaxFans + 1) {}

} // namespace karvane
