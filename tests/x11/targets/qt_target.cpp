// A Qt 6 window that reports what a user's clicks and typing did to it, one line each.
#include <QApplication>
#include <QLineEdit>
#include <QPushButton>
#include <QTimer>
#include <QVBoxLayout>
#include <cstdio>

struct Button : QPushButton {
    using QPushButton::QPushButton;
    bool event(QEvent* e) override {
        if (e->type() == QEvent::MouseButtonDblClick) std::puts("double");
        return QPushButton::event(e);
    }
};

int main(int argc, char** argv) {
    std::setvbuf(stdout, nullptr, _IOLBF, 0);  // each line reaches the test as it happens
    QApplication app(argc, argv);
    QWidget window;
    auto* layout = new QVBoxLayout(&window);
    auto* button = new Button("Press");
    button->setMinimumSize(200, 60);
    button->setContextMenuPolicy(Qt::CustomContextMenu);
    auto* entry = new QLineEdit;
    layout->addWidget(button);
    layout->addWidget(entry);
    QObject::connect(button, &QPushButton::clicked, [] { std::puts("clicked"); });
    QObject::connect(button, &QPushButton::customContextMenuRequested, [] { std::puts("menu"); });
    QObject::connect(entry, &QLineEdit::returnPressed,
                     [entry] { std::printf("text %s\n", entry->text().toUtf8().constData()); });
    window.move(640, 200);
    window.show();
    QTimer::singleShot(500, [&] {
        for (auto [name, widget] : {std::pair<const char*, QWidget*>{"button", button}, {"entry", entry}}) {
            const QPoint c = widget->mapToGlobal(widget->rect().center());
            std::printf("at %s %d %d\n", name, c.x(), c.y());
        }
        std::puts("ready");
    });
    return app.exec();
}
