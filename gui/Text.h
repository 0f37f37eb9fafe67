#pragma once
// The one crossing between the core's texts and Qt's: statement bytes are decoded for display
// (UTF-8, else Windows-1252), the program's line break "\r" becomes a new line, and what the
// user types goes back to the core as UTF-8.

#include <QString>
#include <QStringList>

class QWidget;
#include <string>
#include <string_view>
#include <vector>

namespace tavvel::gui {

QString qt(std::string_view text);
std::string core(const QString& text);
QStringList qtList(const std::vector<std::string>& texts);

// Shows or hides a form row with its label (a widget outside a form layout: the widget).
void showRow(QWidget* field, bool visible);

} // namespace tavvel::gui
