#include "Text.h"

#include "dialogs/DisplayText.h"

#include <QFormLayout>
#include <QWidget>

namespace tavvel::gui {

QString qt(std::string_view text) {
    std::string shown = displayText(text);
    QString out = QString::fromUtf8(shown.data(), static_cast<qsizetype>(shown.size()));
    out.replace(QLatin1String("\r\n"), QLatin1String("\n"));
    out.replace(QLatin1Char('\r'), QLatin1Char('\n'));
    return out;
}

std::string core(const QString& text) {
    return text.toStdString();
}

QStringList qtList(const std::vector<std::string>& texts) {
    QStringList out;
    out.reserve(static_cast<qsizetype>(texts.size()));
    for (const std::string& text : texts)
        out << qt(text);
    return out;
}

void showRow(QWidget* field, bool visible) {
    if (QWidget* parent = field->parentWidget())
        for (QFormLayout* form : parent->findChildren<QFormLayout*>())
            if (form->indexOf(field) >= 0) {
                form->setRowVisible(field, visible);
                return;
            }
    field->setVisible(visible);
}

} // namespace tavvel::gui
