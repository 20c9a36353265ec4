#include "chords/ChordsViewController.h"

namespace uke {

ChordsViewController::ChordsViewController(Services services, SharedState& state, RatingPrompt& rating)
    : s_(services), state_(state), rating_(rating) {}

void ChordsViewController::viewDidLoad() {}

} // namespace uke
