#include "qt/ShownTexts.h"

#include "qt/StationWindow.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QRegularExpression>
#include <QTabBar>

#include <gtest/gtest.h>

namespace
{
bool InSight(const QWidget* control)
{
    return control->isVisible() && !control->visibleRegion().isEmpty();
}

void AddList(std::vector<ShownText>& texts, const QListWidget& list)
{
    for (int row = 0; row < list.count(); ++row) {
        texts.push_back({list.objectName(), list.item(row)->text()});
    }
}

void AddTabs(std::vector<ShownText>& texts, const QTabBar& tabs)
{
    for (int tab = 0; tab < tabs.count(); ++tab) {
        texts.push_back({QString("%1 %2").arg(tabs.objectName()).arg(tab), tabs.tabText(tab)});
    }
}

void AddControl(std::vector<ShownText>& texts, const QWidget* control)
{
    const QString name = control->objectName();
    if (const auto* label = qobject_cast<const QLabel*>(control)) {
        texts.push_back({name, label->text()});
    } else if (const auto* button = qobject_cast<const QAbstractButton*>(control)) {
        texts.push_back({name, button->text()});
    } else if (const auto* edit = qobject_cast<const QLineEdit*>(control)) {
        texts.push_back({name, edit->text()});
        texts.push_back({name + " hint", edit->placeholderText()});
    } else if (const auto* tabs = qobject_cast<const QTabBar*>(control)) {
        AddTabs(texts, *tabs);
    } else if (const auto* list = qobject_cast<const QListWidget*>(control)) {
        AddList(texts, *list);
    } else if (const auto* combo = qobject_cast<const QComboBox*>(control)) {
        for (int option = 0; option < combo->count(); ++option) {
            texts.push_back({name, combo->itemText(option)});
        }
    }
    texts.push_back({name + " tip", control->toolTip()});
}

/// Width that the longest word of a text asks for: a wrapped line breaks at blanks only, those without width among them.
int WidestWord(const QLabel& label)
{
    const QRegularExpression blank("[ \\x{200B}]");
    int widest = 0;
    for (const QString& word : label.text().split(blank)) {
        widest = std::max(widest, label.fontMetrics().horizontalAdvance(word));
    }
    return widest;
}

void ExpectRoomInLabel(const QLabel& label, const std::string& where)
{
    const QRect room = label.contentsRect();
    if (label.wordWrap()) {
        EXPECT_LE(WidestWord(label), room.width()) << where;
        EXPECT_LE(label.heightForWidth(label.width()), label.height()) << where;
        return;
    }
    EXPECT_LE(label.fontMetrics().horizontalAdvance(label.text()) + std::max(0, label.indent()), room.width())
        << where;
    EXPECT_LE(label.fontMetrics().height(), room.height() + 1) << where;
}
} // namespace

std::vector<ShownText> TextsInSight()
{
    std::vector<ShownText> texts = {{"title", Window.Main->windowTitle()}};
    for (const QWidget* control : Window.Main->findChildren<QWidget*>()) {
        if (InSight(control)) {
            AddControl(texts, control);
        }
    }
    std::erase_if(texts, [](const ShownText& shown) { return shown.Text.isEmpty(); });
    return texts;
}

void ExpectRoomForTexts(const QString& where)
{
    for (const QWidget* control : Window.Main->findChildren<QWidget*>()) {
        if (!InSight(control)) {
            continue;
        }
        const std::string what = (where + ", " + control->objectName()).toStdString();
        const QRect place(control->mapTo(Window.Main, QPoint(0, 0)), control->size());
        if (const auto* label = qobject_cast<const QLabel*>(control);
            label != nullptr && !label->text().isEmpty()) {
            ExpectRoomInLabel(*label, what + " \"" + label->text().toStdString() + "\"");
            EXPECT_TRUE(Window.Main->rect().contains(place)) << what;
        } else if (const auto* button = qobject_cast<const QAbstractButton*>(control)) {
            EXPECT_LE(button->fontMetrics().horizontalAdvance(button->text()), button->width() - 8) << what;
            EXPECT_TRUE(Window.Main->rect().contains(place)) << what;
        } else if (const auto* tabs = qobject_cast<const QTabBar*>(control)) {
            EXPECT_LE(tabs->sizeHint().width(), tabs->width()) << what;
        } else if (qobject_cast<const QLineEdit*>(control) != nullptr ||
                   qobject_cast<const QComboBox*>(control) != nullptr) {
            EXPECT_TRUE(Window.Main->rect().contains(place)) << what;
        }
    }
}
