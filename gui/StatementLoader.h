#pragma once
// Reads a statement's table rows on a thread of its own, so that the window keeps repainting
// and answering while a large statement is read. The thread works on a copy of the context:
// the window may change the preferences meanwhile without either side seeing half a change.

#include "app/StatementRows.h"

#include <QObject>
#include <memory>
#include <optional>
#include <thread>
#include <vector>

namespace tavvel {
class Context;
}

namespace tavvel::gui {

class StatementLoader : public QObject {
    Q_OBJECT
public:
    explicit StatementLoader(QObject* parent = nullptr);
    ~StatementLoader() override;

    // Starts reading; a reading under way is stopped first and its rows never arrive.
    void start(const Context& ctx, StatementSource source);
    // Stops the reading under way: neither its rows nor its progress arrive any more.
    void cancel();
    bool busy() const { return busy_; }
    // The rows of the reading that finished last, handed over once.
    std::vector<StatementRow> takeRows() { return std::move(rows_); }

signals:
    void progressed(qint64 done, qint64 total);
    void finished();
    void cancelled();

private:
    RowReading readingFor(unsigned generation, std::stop_token stop);
    void deliver(unsigned generation, std::shared_ptr<std::optional<std::vector<StatementRow>>>);

    std::vector<StatementRow> rows_;
    unsigned generation_ = 0;
    bool busy_ = false;
    std::jthread worker_; // last: joined before the rest goes
};

} // namespace tavvel::gui
