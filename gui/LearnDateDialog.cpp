#include "LearnDateDialog.h"

#include "Text.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFontDatabase>
#include <QFontMetrics>
#include <QFormLayout>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSplitter>
#include <QTextCursor>
#include <QVBoxLayout>

namespace tavvel::gui {

namespace {

// The selection of a text view in bytes of the text it shows.
TextSelection selectionIn(const QPlainTextEdit& view, std::string_view text) {
    const QTextCursor cursor = view.textCursor();
    const std::size_t start = byteOffset(text, cursor.selectionStart());
    return {start, byteOffset(text, cursor.selectionEnd()) - start};
}

QWidget* titled(const QString& title, QWidget* view, QWidget* parent) {
    auto* box = new QWidget(parent);
    auto* layout = new QVBoxLayout(box);
    layout->setContentsMargins(0, 0, 0, 0);
    auto* label = new QLabel(title, box);
    label->setWordWrap(true);
    label->setBuddy(view);
    layout->addWidget(label);
    layout->addWidget(view, 1);
    return box;
}

} // namespace

LearnDateDialog::LearnDateDialog(LearnDateForm& form, QWidget* parent)
    : LearnDialog(parent), form_(form) {
    setWindowTitle(qt(form.title));
    auto* layout = new QVBoxLayout(this);
    dateView_ = textView(form.dateView, "dateView");
    matchView_ = textView(form.matchView, "matchView");
    auto* views = new QSplitter(Qt::Vertical, this);
    views->addWidget(titled(tr("Select the &date of a transaction (not the first one shown):"),
                            dateView_, views));
    views->addWidget(
        titled(tr("Select a &text found in every statement of this bank:"), matchView_, views));
    layout->addWidget(views, 1);
    connect(dateView_, &QPlainTextEdit::selectionChanged, this,
            [this] { form_.selectDate(selectionIn(*dateView_, form_.dateView)); });
    connect(matchView_, &QPlainTextEdit::selectionChanged, this,
            [this] { form_.selectMatch(selectionIn(*matchView_, form_.matchView)); });

    auto* fields = new QFormLayout;
    auto* type = new QComboBox(this);
    type->setObjectName(QStringLiteral("statementType"));
    for (const auto& statementType : LearnDateForm::statementTypes())
        type->addItem(qt(statementType.title));
    type->setCurrentIndex(static_cast<int>(form.typeIndex));
    connect(type, &QComboBox::activated, this,
            [this](int index) { form_.chooseType(static_cast<std::size_t>(index)); });
    fields->addRow(tr("Statement &type:"), type);
    auto* dayFirst = new QCheckBox(tr("Dates are written day before month"), this);
    dayFirst->setObjectName(QStringLiteral("dayBeforeMonth"));
    dayFirst->setChecked(form.dayBeforeMonth);
    connect(dayFirst, &QCheckBox::toggled, this, [this](bool on) { form_.dayBeforeMonth = on; });
    auto* firstLine = new QCheckBox(tr("The first line starts with a transaction date"), this);
    firstLine->setObjectName(QStringLiteral("firstLineStartsWithDate"));
    firstLine->setChecked(form.firstLineStartsWithTransactionDate);
    connect(firstLine, &QCheckBox::toggled, this,
            [this](bool on) { form_.firstLineStartsWithTransactionDate = on; });
    fields->addRow(QString(), dayFirst);
    fields->addRow(QString(), firstLine);
    layout->addLayout(fields);

    auto* buttons = new QDialogButtonBox(this);
    addButton(buttons, tr("Cancel"), LearnAction::cancel);
    addButton(buttons, tr("OK"), LearnAction::ok)->setDefault(true);
    layout->addWidget(buttons);
}

QPlainTextEdit* LearnDateDialog::textView(const std::string& text, const char* name) {
    auto* view = new QPlainTextEdit(qt(text), this);
    view->setObjectName(QLatin1String(name));
    view->setReadOnly(true);
    view->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    view->setLineWrapMode(QPlainTextEdit::NoWrap);
    view->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    // Room for a statement line of 80 characters and a dozen lines, at any font size.
    const QFontMetrics metrics(view->font());
    view->setMinimumSize(metrics.horizontalAdvance(QLatin1Char('0')) * 82,
                         metrics.lineSpacing() * 12);
    return view;
}

} // namespace tavvel::gui
