#include "chords/ChordsViewController.h"

namespace uke {

ChordsViewController::ChordsViewController(Services services, SharedState& state, ChordScreenModel& screen,
                                           RatingPrompt& rating)
    : s_(services), state_(state), screen_(screen), rating_(rating) {}

void ChordsViewController::viewDidLoad() {}

} // namespace uke
