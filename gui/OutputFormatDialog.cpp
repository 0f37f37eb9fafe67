#include "OutputFormatDialog.h"

#include "QtDialogs.h"
#include "Text.h"
#include "context/Context.h"
#include "dialogs/Dialogs.h"
#include "dialogs/MessageFormat.h"
#include "formats/OutputFormatFiles.h"
#include "formats/OutputFormatStore.h"
#include "formats/OutputFormatTexts.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>
#include <functional>

namespace tavvel::gui {

namespace {

QComboBox* choices(const std::vector<std::string_view>& titles, QWidget* parent) {
    auto* box = new QComboBox(parent);
    for (std::string_view title : titles)
        box->addItem(qt(title));
    return box;
}

QPushButton* button(const QString& title, QBoxLayout* row) {
    auto* b = new QPushButton(title);
    row->addWidget(b);
    return b;
}

} // namespace

OutputFormatDialog::OutputFormatDialog(OutputFormatForm& form, Context& ctx, Dialogs& dialogs,
                                       QWidget* parent)
    : QDialog(parent), form_(form), ctx_(ctx), dialogs_(dialogs) {
    setWindowTitle(qt(form.title()));
    QFormLayout* fields = buildFields();
    columns_ = new QListWidget(this);
    columns_->setObjectName(QStringLiteral("columns"));
    columns_->setDragDropMode(QAbstractItemView::InternalMove);
    preview_ = new QPlainTextEdit(this);
    preview_->setObjectName(QStringLiteral("preview"));
    preview_->setReadOnly(true);
    preview_->setLineWrapMode(QPlainTextEdit::NoWrap);
    problem_ = new QLabel(this);
    problem_->setObjectName(QStringLiteral("problem"));

    auto* buttons = new QDialogButtonBox(this);
    confirm_ = buttons->addButton(qt(form.confirmButtonTitle()), QDialogButtonBox::AcceptRole);
    buttons->addButton(QDialogButtonBox::Cancel);
    connect(buttons, &QDialogButtonBox::accepted, this, &OutputFormatDialog::confirm);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);

    auto* layout = new QVBoxLayout(this);
    layout->addLayout(fields);
    layout->addWidget(new QLabel(tr("Columns (tick to write, drag to order):"), this));
    layout->addWidget(columns_);
    layout->addWidget(new QLabel(tr("Preview:"), this));
    layout->addWidget(preview_);
    layout->addWidget(problem_);
    layout->addWidget(buttons);
    connectFields();
    refresh();
}

QFormLayout* OutputFormatDialog::buildFields() {
    auto* fields = new QFormLayout;
    name_ = new QLineEdit(this);
    type_ = choices(OutputFormatForm::typeTitles(), this);
    separator_ = choices(OutputFormatForm::separatorTitles(), this);
    amount_ = choices(OutputFormatForm::amountTitles(), this);
    splits_ = new QCheckBox(tr("Write every split (amount, category, memo)"), this);
    reformat_ = new QCheckBox(tr("Rewrite dates as"), this);
    pattern_ = new QLineEdit(this);
    fields->addRow(tr("Name:"), name_);
    fields->addRow(tr("Type:"), type_);
    fields->addRow(tr("Separator:"), separator_);
    fields->addRow(tr("Amount:"), amount_);
    fields->addRow(QString(), splits_);
    fields->addRow(reformat_, pattern_);

    return fields;
}

void OutputFormatDialog::connectFields() {
    connect(name_, &QLineEdit::textEdited, this,
            [this](const QString& t) { form_.setName(core(t)); });
    auto chosen = [this](QComboBox* box, std::function<bool(std::string_view)> set) {
        connect(box, &QComboBox::currentTextChanged, this,
                [this, set = std::move(set)](const QString& t) {
                    if (!filling_ && set(core(t)))
                        refresh();
                });
    };
    chosen(type_, [this](std::string_view t) { return form_.setType(t); });
    chosen(separator_, [this](std::string_view t) { return form_.setSeparator(t); });
    chosen(amount_, [this](std::string_view t) { return form_.setAmountStyle(t); });
    connect(splits_, &QCheckBox::toggled, this, [this](bool on) {
        if (!filling_)
            form_.setEverySplit(on), refresh();
    });
    connect(reformat_, &QCheckBox::toggled, this, [this](bool on) {
        if (!filling_)
            form_.setReformatDate(on), refresh();
    });
    connect(pattern_, &QLineEdit::textEdited, this, [this](const QString& t) {
        form_.setReformatDateFormat(core(t));
        showPreview();
    });
    connect(columns_->model(), &QAbstractItemModel::rowsMoved, this,
            &OutputFormatDialog::columnsReordered);
    connect(columns_, &QListWidget::itemChanged, this,
            [this](QListWidgetItem* item) { columnTicked(columns_->row(item)); });
}

void OutputFormatDialog::refresh() {
    filling_ = true;
    name_->setText(qt(form_.name()));
    type_->setCurrentText(qt(form_.type()));
    separator_->setCurrentText(qt(form_.separator()));
    amount_->setCurrentText(qt(form_.amountStyle()));
    splits_->setChecked(form_.everySplit());
    reformat_->setChecked(form_.reformatDate());
    pattern_->setText(qt(form_.reformatDateFormat()));
    columns_->clear();
    for (const auto& column : form_.columns()) {
        auto* item = new QListWidgetItem(qt(column.name), columns_);
        item->setFlags(item->flags() | Qt::ItemIsUserCheckable | Qt::ItemIsDragEnabled);
        item->setCheckState(column.present ? Qt::Checked : Qt::Unchecked);
    }
    showPreview();
    filling_ = false;
}

void OutputFormatDialog::showPreview() {
    preview_->setPlainText(qt(form_.preview(ctx_, dialogs_)));
}

// The list has its new order already; the form learns it one move at a time.
void OutputFormatDialog::columnsReordered() {
    if (filling_)
        return;
    for (int row = 0; row < columns_->count(); ++row) {
        auto at = form_.columnIndex(core(columns_->item(row)->text()));
        if (at && *at != static_cast<std::size_t>(row))
            form_.moveColumn(*at, static_cast<std::size_t>(row));
    }
    refresh();
}

void OutputFormatDialog::columnTicked(int row) {
    if (filling_ || row < 0)
        return;
    form_.setPresent(static_cast<std::size_t>(row),
                     columns_->item(row)->checkState() == Qt::Checked);
    showPreview();
}

void OutputFormatDialog::confirm() {
    if (!form_.confirm()) {
        problem_->setText(qt(form_.problem()));
        return;
    }
    accept();
}

OutputFormatListDialog::OutputFormatListDialog(Context& ctx, QtDialogs& dialogs, QWidget* parent)
    : QDialog(parent), ctx_(ctx), dialogs_(dialogs) {
    setWindowTitle(tr("Output Formats"));
    names_ = new QListWidget(this);
    names_->setObjectName(QStringLiteral("outputFormats"));
    auto* row = new QHBoxLayout;
    connect(button(tr("New…"), row), &QPushButton::clicked, this, [this] { editFormat({}); });
    connect(button(tr("Edit…"), row), &QPushButton::clicked, this,
            [this] { editFormat(selected()); });
    connect(button(tr("Duplicate"), row), &QPushButton::clicked, this,
            &OutputFormatListDialog::duplicate);
    connect(button(tr("Delete"), row), &QPushButton::clicked, this,
            &OutputFormatListDialog::remove);
    connect(button(tr("Export…"), row), &QPushButton::clicked, this,
            &OutputFormatListDialog::exportSelected);
    connect(button(tr("Import…"), row), &QPushButton::clicked, this,
            &OutputFormatListDialog::import);
    connect(names_, &QListWidget::itemDoubleClicked, this,
            [this](QListWidgetItem* item) { editFormat(item->text()); });
    auto* close = new QDialogButtonBox(QDialogButtonBox::Close, this);
    connect(close, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(names_);
    layout->addLayout(row);
    layout->addWidget(close);
    refresh();
}

void OutputFormatListDialog::refresh(const QString& select) {
    names_->clear();
    names_->addItems(qtList(outputFormatNames(ctx_.prefs)));
    auto found = names_->findItems(select, Qt::MatchExactly);
    if (!found.isEmpty())
        names_->setCurrentItem(found.front());
}

QString OutputFormatListDialog::selected() const {
    return names_->currentItem() ? names_->currentItem()->text() : QString();
}

bool OutputFormatListDialog::editFormat(const QString& name) {
    // New always defines a format, under a free name; the user names it in the form.
    std::optional<OutputFormatForm> form =
        name.isEmpty()
            ? std::optional(OutputFormatForm::newFormat(ctx_.prefs, core(tr("Untitled"))))
            : OutputFormatForm::open(ctx_.prefs, core(name));
    if (!form) {
        dialogs_.alert(core(windowTitle()), std::string(text::outputFormatBuiltIn));
        return false;
    }
    OutputFormatDialog dialog(*form, ctx_, dialogs_, this);
    bool saved = dialogs_.runModal(dialog) == QDialog::Accepted;
    refresh(qt(form->name()));
    return saved;
}

void OutputFormatListDialog::duplicate() {
    if (auto copy = duplicateOutputFormat(ctx_.prefs, core(selected())))
        refresh(qt(*copy));
}

void OutputFormatListDialog::remove() {
    std::string name = core(selected());
    if (name.empty())
        return;
    if (isBuiltInOutputFormat(name)) {
        dialogs_.alert(std::string(text::deleteOutputFormatTitle),
                       std::string(text::outputFormatBuiltIn));
        return;
    }
    std::size_t answer =
        dialogs_.ask(std::string(text::deleteOutputFormatTitle),
                     formatMessage(text::deleteOutputFormatText, name),
                     {std::string(text::deleteButton), std::string(text::cancelButton)});
    if (answer == 0)
        removeOutputFormat(ctx_.prefs, name);
    refresh();
}

void OutputFormatListDialog::exportSelected() {
    std::string name = core(selected());
    std::string extension(text::outputFormatFileExtension);
    auto file = dialogs_.chooseFileToSave({{extension}, {}, name + "." + extension, {}});
    if (file)
        exportOutputFormatTelling(ctx_.prefs, name, *file, dialogs_);
}

void OutputFormatListDialog::import() {
    auto file =
        dialogs_.chooseFileToOpen({{std::string(text::outputFormatFileExtension)}, {}, {}, {}});
    if (file && importOutputFormatTelling(ctx_.prefs, *file, dialogs_))
        refresh();
}

} // namespace tavvel::gui
