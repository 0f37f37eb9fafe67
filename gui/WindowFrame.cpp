#include "WindowFrame.h"

#include "prefs/TvPrefs.h"

#include <QByteArray>
#include <QWidget>

namespace tavvel::gui {

bool restoreFrame(QWidget& window, const TvPrefs& prefs) {
    const Value* stored = prefs.objectForKey(kWindowFrameKey);
    if (!stored || !stored->isString())
        return false;
    const std::string& text = stored->text();
    QByteArray frame =
        QByteArray::fromBase64(QByteArray(text.data(), static_cast<int>(text.size())));
    return window.restoreGeometry(frame);
}

void saveFrame(const QWidget& window, TvPrefs& prefs) {
    QByteArray frame = window.saveGeometry().toBase64();
    prefs.setObject(kWindowFrameKey, Value(frame.toStdString()));
    prefs.synchronize();
}

} // namespace tavvel::gui
