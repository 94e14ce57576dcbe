// A Qt 6 window that reports what a user's clicks and typing did to it, one line each.
#include <QApplication>
#include <QLineEdit>
#include <QPushButton>
#include <QTimer>
#include <QVBoxLayout>
#include <cstdio>

namespace {

void say(const QString& line) {
    std::printf("%s\n", line.toUtf8().constData());
    std::fflush(stdout);
}

struct Button : QPushButton {
    using QPushButton::QPushButton;
    bool event(QEvent* e) override {
        if (e->type() == QEvent::MouseButtonDblClick) say("double");
        return QPushButton::event(e);
    }
};

}  // namespace

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    QWidget window;
    window.setWindowTitle("qt target");
    auto* layout = new QVBoxLayout(&window);
    auto* button = new Button("Press");
    button->setMinimumSize(200, 60);
    button->setContextMenuPolicy(Qt::CustomContextMenu);
    auto* entry = new QLineEdit;
    layout->addWidget(button);
    layout->addWidget(entry);
    QObject::connect(button, &QPushButton::clicked, [] { say("clicked"); });
    QObject::connect(button, &QPushButton::customContextMenuRequested, [] { say("menu"); });
    QObject::connect(entry, &QLineEdit::returnPressed, [entry] {
        say("text " + entry->text());
        entry->clear();
    });
    window.move(640, 200);
    window.show();
    QTimer::singleShot(500, [&] {
        for (auto [name, widget] : {std::pair<QString, QWidget*>{"button", button}, {"entry", entry}}) {
            const QPoint c = widget->mapToGlobal(widget->rect().center());
            say(QString("at %1 %2 %3").arg(name).arg(c.x()).arg(c.y()));
        }
        say("ready");
    });
    return app.exec();
}
