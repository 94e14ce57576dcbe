// Writes the window icon into a hicolor icon theme tree, one PNG per size given:
//   quorlin_icon_export DIR SIZE...  ->  DIR/SIZExSIZE/apps/quorlin.png
#include <QDir>
#include <QString>
#include <cstdio>
#include <cstdlib>

#include "artwork.h"

int main(int argc, char** argv) {
    if (argc < 3) {
        std::fprintf(stderr, "usage: %s DIR SIZE...\n", argv[0]);
        return 2;
    }
    const QString root = QString::fromLocal8Bit(argv[1]);
    for (int i = 2; i < argc; ++i) {
        const int size = std::atoi(argv[i]);
        const QString folder = QString("%1/%2x%2/apps").arg(root, QString::number(size));
        if (size <= 0 || !QDir().mkpath(folder) || !quorlin::qt::iconImage(size).save(folder + "/quorlin.png")) {
            std::fprintf(stderr, "%s: cannot write the %s px icon under %s\n", argv[0], argv[i], argv[1]);
            return 1;
        }
    }
    return 0;
}
