#include "LearnWidgets.h"

#include "Text.h"
#include "dialogs/DisplayText.h"

#include <QDialogButtonBox>
#include <QFontMetrics>
#include <QHeaderView>
#include <QPushButton>
#include <QScrollBar>
#include <QTableWidget>
#include <algorithm>

namespace tavvel::gui {

QPushButton* LearnDialog::addButton(QDialogButtonBox* box, const QString& title,
                                    LearnAction action) {
    QPushButton* button = box->addButton(title, QDialogButtonBox::ActionRole);
    button->setObjectName(title.toLower());
    button->setAutoDefault(false);
    connect(button, &QPushButton::clicked, this, [this, action] {
        action_ = action;
        done(action == LearnAction::cancel ? QDialog::Rejected : QDialog::Accepted);
    });
    return button;
}

void setUpPreview(QTableWidget& table) {
    table.setEditTriggers(QAbstractItemView::NoEditTriggers);
    table.setSizeAdjustPolicy(QAbstractScrollArea::AdjustToContents);
    const QFontMetrics metrics(table.font());
    table.setMinimumHeight(metrics.lineSpacing() * 8);
    table.setMaximumSize(metrics.averageCharWidth() * 160, metrics.lineSpacing() * 40);
}

void showPreview(QTableWidget& table, const PreviewTable& preview,
                 const std::vector<std::string>& titles) {
    table.clear();
    table.setColumnCount(static_cast<int>(preview.columns));
    table.setRowCount(static_cast<int>(preview.rows.size()));
    for (std::size_t c = 0; c < preview.columns; ++c) {
        QString header = QString::number(c + 1);
        if (c < titles.size() && !titles[c].empty())
            header += QLatin1Char('\n') + qt(titles[c]);
        table.setHorizontalHeaderItem(static_cast<int>(c), new QTableWidgetItem(header));
    }
    for (std::size_t r = 0; r < preview.rows.size(); ++r)
        for (std::size_t c = 0; c < preview.columns; ++c) {
            auto* item = new QTableWidgetItem(qt(preview.cell(r, c)));
            item->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable);
            table.setItem(static_cast<int>(r), static_cast<int>(c), item);
        }
    table.resizeColumnsToContents();
    table.resizeRowsToContents();
    // Qt caps a table's own size hint at 36 lines wide; the whole sample should show when the
    // screen allows.
    int width = table.verticalHeader()->sizeHint().width() + 2 * table.frameWidth() +
                table.verticalScrollBar()->sizeHint().width();
    for (int c = 0; c < table.columnCount(); ++c)
        width += table.columnWidth(c);
    const QFontMetrics metrics(table.font());
    table.setMinimumWidth(std::clamp(width, metrics.averageCharWidth() * 60, table.maximumWidth()));
}

// qt() shows a CR LF pair as one new line, decodes UTF-8 (a character of four bytes takes two
// positions) and otherwise shows each Windows-1252 byte as one character.
std::size_t byteOffset(std::string_view text, qsizetype position) {
    const bool utf8 = isValidUtf8(text);
    std::size_t at = 0;
    for (qsizetype shown = 0; shown < position && at < text.size(); ++shown) {
        const auto lead = static_cast<unsigned char>(text[at]);
        if (text.substr(at, 2) == "\r\n") {
            at += 2;
            continue;
        }
        if (!utf8 || lead < 0x80) {
            ++at;
            continue;
        }
        const std::size_t length = lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : 2;
        if (length == 4)
            ++shown; // a surrogate pair
        at += length;
    }
    return std::min(at, text.size());
}

} // namespace tavvel::gui
