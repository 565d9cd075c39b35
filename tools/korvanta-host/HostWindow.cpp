#include "HostWindow.h"

#include "HostObjects.h"

#include <QApplication>
#include <QBoxLayout>
#include <QComboBox>
#include <QGuiApplication>
#include <QLabel>
#include <QPlainTextEdit>
#include <QScreen>
#include <QTime>
#include <QTimer>

#include <chrono>

namespace
{
constexpr int MostLines = 1000;
constexpr int BarMargin = 4;
constexpr std::chrono::seconds FrontTime{1};
constexpr int WindowWidth = 520;
constexpr int WindowHeight = 260;

/// Above the station's own window, which may have the whole screen.
constexpr auto BarFlags = Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint |
                          Qt::X11BypassWindowManagerHint | Qt::WindowDoesNotAcceptFocus;

QComboBox* MakeLanguages(QWidget* parent)
{
    auto* languages = new QComboBox(parent);
    languages->setAccessibleName("Language");
    languages->setFocusPolicy(Qt::ClickFocus);
    for (const HostLanguageRow& row : HostLanguages) {
        languages->addItem(row.Name);
    }
    languages->setCurrentIndex(Host.Language);
    QObject::connect(languages, &QComboBox::activated, [](int index) {
        Host.Language = static_cast<std::int16_t>(index);
        TellHost(QString("language set: %1").arg(index));
    });
    return languages;
}

QPlainTextEdit* MakeLog(QWidget* parent)
{
    auto* log = new QPlainTextEdit(parent);
    log->setAccessibleName("Log");
    log->setReadOnly(true);
    log->setFocusPolicy(Qt::NoFocus);
    log->setMaximumBlockCount(MostLines);
    Host.Tell.emplace_back([log](const QString& line) {
        log->appendPlainText(QTime::currentTime().toString("HH:mm:ss  ") + line);
    });
    return log;
}

/// A station tells that it is up before its window shows, and where no window manager keeps order the newer window lies in
/// front.
void KeepInFront(QWidget* bar)
{
    auto* timer = new QTimer(bar);
    QObject::connect(timer, &QTimer::timeout, bar, [bar] {
        if (QApplication::activePopupWidget() == nullptr) {
            bar->raise();
            QGuiApplication::sync(); // nothing else may be sent for long
        }
    });
    timer->start(FrontTime);
}
} // namespace

/// The title must not hold the station's name: that would count as a station that runs.
std::unique_ptr<QWidget> ShowHostWindow(int barHeight)
{
    const bool isBar = barHeight > 0;
    auto shown = std::make_unique<QWidget>(nullptr, isBar ? BarFlags : Qt::WindowFlags());
    QWidget* window = shown.get();
    window->setWindowTitle("CNC host");
    auto* rows = new QBoxLayout(isBar ? QBoxLayout::LeftToRight : QBoxLayout::TopToBottom, window);
    auto* languageRow = new QHBoxLayout;
    languageRow->addWidget(new QLabel("Language of the next start:", window));
    languageRow->addWidget(MakeLanguages(window));
    languageRow->addStretch();
    rows->addLayout(languageRow);
    rows->addWidget(MakeLog(window), 1);
    if (isBar) {
        rows->setContentsMargins(BarMargin, BarMargin, BarMargin, BarMargin);
        const QRect screen = QGuiApplication::primaryScreen()->geometry();
        window->setFixedHeight(barHeight);
        window->setGeometry(screen.x(), screen.y(), screen.width(), barHeight);
        KeepInFront(window);
    } else {
        window->resize(WindowWidth, WindowHeight);
    }
    window->show();
    return shown;
}
