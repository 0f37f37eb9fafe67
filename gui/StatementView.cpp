#include "StatementView.h"

#include "ProgressRow.h"
#include "StatementLoader.h"
#include "Text.h"
#include "TransactionTableModel.h"
#include "app/Controller.h"
#include "app/StatementRows.h"
#include "app/TableTexts.h"

#include <QHeaderView>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QScrollBar>
#include <QTableView>
#include <QVBoxLayout>

namespace tavvel::gui {

namespace {

QTableView* makeTableView(QAbstractItemModel* model, QWidget* parent) {
    auto* view = new QTableView(parent);
    view->setObjectName(QStringLiteral("transactions"));
    view->setAccessibleName(QObject::tr("Transactions"));
    view->setModel(model);
    view->setSelectionBehavior(QAbstractItemView::SelectRows);
    view->setAlternatingRowColors(true);
    view->setWordWrap(false);
    // Fixed row heights and column widths: measuring 100,000 rows' contents would stall.
    view->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    view->verticalHeader()->setDefaultSectionSize(view->fontMetrics().height() + 6);
    view->verticalHeader()->hide();
    view->horizontalHeader()->setSectionResizeMode(QHeaderView::Interactive);
    view->horizontalHeader()->setStretchLastSection(true);
    int digit = view->fontMetrics().horizontalAdvance(QLatin1Char('0'));
    const int widths[] = {11, 11, 7, 24, 18, 14};
    for (int column = 0; column < TransactionTableModel::columns; ++column)
        view->setColumnWidth(column, widths[column] * digit);
    return view;
}

} // namespace

StatementView::StatementView(Context& ctx, const Controller& controller, QWidget* parent)
    : QWidget(parent), ctx_(ctx), controller_(controller) {
    model_ = new TransactionTableModel(table_, this);
    loader_ = new StatementLoader(this);
    view_ = makeTableView(model_, this);
    summary_ = new QLabel(this);
    summary_->setObjectName(QStringLiteral("summary"));
    summary_->setWordWrap(true);
    progressRow_ = new QWidget(this);
    ProgressRow row =
        fillProgressRow(*progressRow_, tr("Reading progress"), QStringLiteral("cancelReading"),
                        tr("Stop reading the statement (Esc)"));
    bar_ = row.bar;
    cancel_ = row.cancel;
    progressRow_->hide();
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(view_, 1);
    layout->addWidget(progressRow_);
    layout->addWidget(summary_);
    progressDelay_.setSingleShot(true);
    progressDelay_.setInterval(kProgressDelayMs);
    connect(&progressDelay_, &QTimer::timeout, progressRow_, &QWidget::show);
    connect(cancel_, &QPushButton::clicked, loader_, &StatementLoader::cancel);
    connect(loader_, &StatementLoader::progressed, this, [this](qint64 done, qint64 total) {
        bar_->setRange(0, static_cast<int>(total));
        bar_->setValue(static_cast<int>(done));
    });
    connect(loader_, &StatementLoader::finished, this, &StatementView::loaded);
    connect(loader_, &StatementLoader::cancelled, this, &StatementView::stopped);
}

QSize StatementView::sizeHint() const {
    int width = view_->frameWidth() * 2 + view_->verticalScrollBar()->sizeHint().width();
    for (int column = 0; column < TransactionTableModel::columns; ++column)
        width += view_->columnWidth(column);
    return {width, QWidget::sizeHint().height()};
}

void StatementView::load() {
    StatementSource source = statementSourceOf(controller_);
    loadedAccount_ = source.ofxAccount;
    table_.setRows({});
    model_->reset();
    summary_->setText(qt(text::tableReading));
    bar_->setRange(0, 0);
    progressDelay_.start();
    loader_->start(ctx_, std::move(source));
}

void StatementView::refilter() {
    const RunForm& form = controller_.form();
    std::optional<std::string> account;
    if (form.choosesInputAccount())
        account = form.accountText;
    if (account != loadedAccount_ && controller_.processing())
        return load();
    // The form is shown afresh for many reasons; the view keeps its place unless rows change.
    TableFilter filter = tableFilterFor(form, ctx_);
    if (filter == table_.filter())
        return;
    table_.setFilter(filter);
    model_->reset();
    if (!loader_->busy())
        showSummary();
}

void StatementView::clear() {
    loader_->cancel();
    table_.setRows({});
    model_->reset();
    summary_->clear();
}

void StatementView::loaded() {
    progressDelay_.stop();
    progressRow_->hide();
    table_.setRows(loader_->takeRows());
    table_.setFilter(tableFilterFor(controller_.form(), ctx_));
    model_->reset();
    showSummary();
}

void StatementView::stopped() {
    progressDelay_.stop();
    progressRow_->hide();
    summary_->setText(qt(text::tableReadingStopped));
}

void StatementView::showSummary() {
    summary_->setText(qt(table_.summary()));
}

} // namespace tavvel::gui
