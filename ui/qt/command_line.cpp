#include "command_line.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QFile>
#include <cstdio>

namespace quorlin::qt {

namespace {

// The options QApplication and its X11 back end take out of the arguments themselves.
constexpr const char* kQtOptionsWithValue[] = {
    "display", "geometry", "name", "platform", "platformpluginpath", "platformtheme", "plugin", "qwindowgeometry",
    "qwindowicon", "qwindowtitle", "session", "style", "stylesheet", "title", "visual"};
constexpr const char* kQtFlags[] = {"dograb", "nograb", "reverse", "testability", "widgetcount"};

const QCommandLineOption kHelp({"h", "help"}, "Displays this help.");

void describe(QCommandLineParser& parser) {
    // Qt's single-dash options (-style, -session) must not read as bundles of letters.
    parser.setSingleDashWordOptionMode(QCommandLineParser::ParseAsLongOptions);
    parser.setApplicationDescription("Clicks and types into a window again and again on a timer.");
    parser.addOption(kHelp);
    parser.addVersionOption();
    parser.addPositionalArgument("FILE.tpl", "Start with this project loaded, as \"Load project\" loads it.",
                                 "[FILE.tpl]");
    for (const char* name : kQtOptionsWithValue) {
        QCommandLineOption option(name, QString(), "value");
        option.setFlags(QCommandLineOption::HiddenFromHelp);
        parser.addOption(option);
    }
    for (const char* name : kQtFlags) {
        QCommandLineOption option(name);
        option.setFlags(QCommandLineOption::HiddenFromHelp);
        parser.addOption(option);
    }
}

// The parser names the program after the running application object.
QString helpText(const QCommandLineParser& parser, int argc, char** argv) {
    QCoreApplication named(argc, argv);
    return parser.helpText();
}

CommandLine usageError(const QCommandLineParser& parser, const QString& error, int argc, char** argv) {
    std::fprintf(stderr, "quorlin: %s\n\n%s", qPrintable(error), qPrintable(helpText(parser, argc, argv)));
    return {2, {}, {}};
}

}  // namespace

CommandLine readCommandLine(int argc, char** argv) {
    QCommandLineParser parser;
    describe(parser);
    QStringList arguments;
    for (int i = 0; i < argc; ++i) arguments << QString::fromLocal8Bit(argv[i]);
    if (!parser.parse(arguments)) return usageError(parser, parser.errorText(), argc, argv);
    if (parser.isSet(kHelp)) {
        std::printf("%s", qPrintable(helpText(parser, argc, argv)));
        return {0, {}, {}};
    }
    if (parser.isSet("version")) {
        std::printf("%s %s\n", qPrintable(QCoreApplication::applicationName()),
                    qPrintable(QCoreApplication::applicationVersion()));
        return {0, {}, {}};
    }
    const QStringList files = parser.positionalArguments();
    if (files.size() > 1) return usageError(parser, "Only one project file can be opened.", argc, argv);
    CommandLine line;
    if (!files.isEmpty()) line.projectPath = QFile::encodeName(files.first()).toStdString();
    line.displayName = parser.value("display").toStdString();
    return line;
}

}  // namespace quorlin::qt
