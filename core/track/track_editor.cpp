#include "track/track_editor.h"

namespace quorlin {

void TrackEditor::cmdAddtoList_Click() {}
void TrackEditor::cmdUpdate_Click() {}
void TrackEditor::cmdRemove_Click() {}
void TrackEditor::cmdClearTrackList_Click() {}
void TrackEditor::fgResult_Click(int, int) {}
bool TrackEditor::SplitInterval() { return false; }

}  // namespace quorlin
