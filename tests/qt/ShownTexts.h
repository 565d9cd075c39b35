// ShownTexts.h -- what an operator can read in the window at this moment, and whether all of it has room.
#pragma once

#include <QString>

#include <vector>

/// A text and the name of the control that shows it; tabs carry their number, tool tips stand behind the name.
struct ShownText {
    QString Control;
    QString Text;
};

/// Every text in sight: title, labels, fields, tabs, keys, list items, options, boxes. Empty ones are left out.
std::vector<ShownText> TextsInSight();

/// Fails for each caption in sight that its control cuts off, and each box that leaves the window.
void ExpectRoomForTexts(const QString& where);
