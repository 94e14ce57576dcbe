#include "project/project_commands.h"

#include <fstream>

#include "project/atomic_file.h"
#include "project/project_reader.h"
#include "project/project_writer.h"

namespace quorlin {

namespace {
FileDialogSettings projectDialog(const std::string& fileName) {
    return {"Load Attachement", "Files (*.tpl)", "*.tpl", "tpl", fileName};
}
}  // namespace

// Nothing is shown when saving fails; the former file is kept whole in that case.
void ProjectCommands::cmdSave_Click() {
    auto path = p_.dialogs.saveFile(projectDialog(m_.projectFileName));
    if (!path) return;
    m_.projectFileName = *path;
    writeFileAtomically(*path, [this](std::ostream& out) { return ProjectWriter(out).write(m_); }, p_.files);
}

// The list and the picture box are emptied before the dialog opens, as the window always did.
void ProjectCommands::cmdLoad_Click() {
    list_.clear();
    m_.pictureBox.clear();

    auto path = p_.dialogs.openFile(projectDialog(m_.projectFileName));
    if (!path) return;
    m_.projectFileName = *path;
    std::ifstream in(*path, std::ios::binary);
    if (!in) return;
    ProjectReader(in, m_, list_).read();
}

}  // namespace quorlin
