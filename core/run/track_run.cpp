#include "run/track_run.h"

namespace quorlin {

void TrackRun::StartTrackRun() {}

}  // namespace quorlin
