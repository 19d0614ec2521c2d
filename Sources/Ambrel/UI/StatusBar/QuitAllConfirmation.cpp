#include "UI/StatusBar/QuitAllConfirmation.h"

#include <utility>

namespace ambrel {

void QuitAllConfirmation::ask(const StatusItemPlace& place, Windows::QuitAllQuestion question) {
    question_ = std::move(question);
    // A new question is a new view: the one before it may say another number.
    panel_.forget();
    panel_.show(
        place, QStringLiteral("QuitAllConfirmView"),
        {{"count", question_.count}, {"force", question_.force}, {"answer", QVariant::fromValue<QObject*>(this)}});
}

void QuitAllConfirmation::confirm() {
    close();
    question_.onConfirm();
}

void QuitAllConfirmation::cancel() {
    close();
    question_.onCancel();
}

} // namespace ambrel
