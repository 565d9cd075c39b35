#include "HostWindow.h"

#include "HostObjects.h"

#include <QBoxLayout>
#include <QComboBox>
#include <QGuiApplication>
#include <QLabel>
#include <QPlainTextEdit>
#include <QScreen>
#include <QTime>
#include <QWidget>

namespace
{
constexpr int MostLines = 1000;
constexpr int BarMargin = 4;
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
    languages->setCurrentIndex(Host.Language >= 0 && Host.Language < languages->count() ? Host.Language : -1);
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
} // namespace

/// The title must not hold the station's name: that would count as a station that runs.
void ShowHostWindow(int barHeight)
{
    const bool isBar = barHeight > 0;
    auto* window = new QWidget(nullptr, isBar ? BarFlags : Qt::WindowFlags());
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
    } else {
        window->resize(WindowWidth, WindowHeight);
    }
    window->show();
    Host.Announced = [window] { window->raise(); };
}
