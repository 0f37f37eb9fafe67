#include "StatementLoader.h"

#include "context/Context.h"

namespace tavvel::gui {

namespace {

// A copy, not a new context: making one sets the process's time zone, which a reading still
// finishing on its thread may be using.
std::unique_ptr<Context> snapshotOf(const Context& ctx) {
    return std::make_unique<Context>(ctx);
}

} // namespace

StatementLoader::StatementLoader(QObject* parent) : QObject(parent) {}

StatementLoader::~StatementLoader() {
    worker_.request_stop();
}

void StatementLoader::start(const Context& ctx, StatementSource source) {
    cancel();
    busy_ = true;
    unsigned generation = ++generation_;
    std::shared_ptr<Context> snapshot = snapshotOf(ctx);
    auto work = [this, generation, snapshot, source = std::move(source)](std::stop_token stop) {
        auto rows = std::make_shared<std::optional<std::vector<StatementRow>>>(
            readStatementRows(*snapshot, source, readingFor(generation, stop)));
        QMetaObject::invokeMethod(
            this, [this, generation, rows] { deliver(generation, rows); }, Qt::QueuedConnection);
    };
    // Assigning joins the stopped reading first; it stops within one slice of rows.
    worker_ = std::jthread(std::move(work));
}

// Progress crosses to the window's thread, where a reading that was replaced is not heard.
RowReading StatementLoader::readingFor(unsigned generation, std::stop_token stop) {
    auto report = [this, generation](std::size_t done, std::size_t total) {
        auto shown = [this, generation, done, total] {
            if (generation == generation_)
                emit progressed(static_cast<qint64>(done), static_cast<qint64>(total));
        };
        QMetaObject::invokeMethod(this, shown, Qt::QueuedConnection);
    };
    return {std::move(stop), report};
}

void StatementLoader::cancel() {
    worker_.request_stop();
    ++generation_;
    if (!busy_)
        return;
    busy_ = false;
    emit cancelled();
}

void StatementLoader::deliver(unsigned generation,
                              std::shared_ptr<std::optional<std::vector<StatementRow>>> rows) {
    if (generation != generation_)
        return;
    busy_ = false;
    if (!*rows) {
        emit cancelled();
        return;
    }
    rows_ = std::move(**rows);
    emit finished();
}

} // namespace tavvel::gui
