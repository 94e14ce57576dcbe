#include "project/project_commands.h"

namespace quorlin {

void ProjectCommands::cmdSave_Click() {}
void ProjectCommands::cmdLoad_Click() {}

}  // namespace quorlin
