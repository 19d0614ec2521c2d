#include "Capture/Capture.h"

#include "Capture/Fixtures.h"
#include "Capture/Frame.h"
#include "Capture/Registry.h"
#include "DesignSystem/ABAppearance.h"
#include "DesignSystem/ABRenderConfig.h"
#include "Platform/Environment.h"

#include <chrono>
#include <cstdlib>
#include <utility>

#include <QCoreApplication>
#include <QTimer>

namespace ambrel {

namespace {

using namespace std::chrono_literals;
/// For the view to lay itself out, and for what moves in it to come to rest.
constexpr auto settling = 400ms;
constexpr QPoint offEveryScreen(-30000, -30000);

std::deque<Job> jobs(const std::vector<Picture>& pictures, const std::string& prefix) {
    std::deque<Job> queue;
    for (const auto& picture : pictures) {
        if (picture.key.starts_with(prefix)) {
            queue.push_back({picture.key + "-light", picture, ColorScheme::light});
            queue.push_back({picture.key + "-dark", picture, ColorScheme::dark});
        }
    }
    return queue;
}

} // namespace

bool Capture::runIfRequested(const Environment& environment) {
    const auto folder = environment.value("AMBREL_CAPTURE");
    if (!folder) {
        return false;
    }
    std::error_code ignored;
    std::filesystem::create_directories(*folder, ignored);
    ABRenderConfig::forceMaterialFallback = true;
    ABRenderConfig::captureMode = true;
    // Deleted when the last picture is drawn.
    auto* const capture = new Capture(*folder, environment);
    QTimer::singleShot(0, QCoreApplication::instance(), [capture] { capture->processNext(); });
    return true;
}

Capture::Capture(std::filesystem::path folder, const Environment& environment)
    : folder_(std::move(folder)), fixtures_(std::make_unique<Fixtures>(environment)),
      queue_(jobs(registry(*fixtures_), environment.value("AMBREL_CAPTURE_ONLY").value_or(""))) {
    fixtures_->offerIcons(engine_);
}

Capture::~Capture() = default;

void Capture::processNext() {
    frame_.reset();
    if (queue_.empty()) {
        delete this;
        QCoreApplication::exit(EXIT_SUCCESS);
        return;
    }
    const auto job = std::move(queue_.front());
    queue_.pop_front();
    show(job);
    QTimer::singleShot(settling, [this, name = job.name] {
        frame_->write(folder_ / (name + ".png"));
        QTimer::singleShot(0, [this] { processNext(); });
    });
}

void Capture::show(const Job& job) {
    ABAppearance::shared().setDark(job.appearance == ColorScheme::dark);
    frame_ = std::make_unique<Frame>(engine_, job.picture);
    frame_->showAt(offEveryScreen);
}

} // namespace ambrel
