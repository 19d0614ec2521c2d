#include "UI/Models/OnboardingSteps.h"

namespace ambrel {

OnboardingSteps::OnboardingSteps(OnboardingModel& model, QObject* parent) : QObject(parent), model_(model) {
    subscriptions_.push_back(model.state.subscribe([this](const auto&) { stateChanged(); }));
    subscriptions_.push_back(model.demo.subscribe([this](const auto&) { demoChanged(); }));
    subscriptions_.push_back(model.textEditRunning.subscribe([this](const auto&) { textEditRunningChanged(); }));
    subscriptions_.push_back(model.announcement.subscribe([this](const std::string& sentence) {
        announcement_ = QString::fromStdString(sentence);
        announcementChanged();
    }));
}

void OnboardingSteps::setUpLater() {
    // A copy: it ends in the model's own end.
    const auto finish = model_.onFinish;
    finish();
}

} // namespace ambrel
