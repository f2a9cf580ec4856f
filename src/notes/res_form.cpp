#include "notes/res_form.h"

#include <utility>

namespace quillo {

ResForm::ResForm(std::function<void()> onMainTimer, UINT interval)
    : onMainTimer_(std::move(onMainTimer)), interval_(interval), mainTimer_([this] { OnTick(); }) {}

void ResForm::Load() {
    Resume();
}

void ResForm::Pause() {
    running_ = false;
    mainTimer_.Stop();
}

void ResForm::Resume() {
    running_ = true;
    mainTimer_.Start(interval_);
}

void ResForm::OnTick() {
    // Stopped meanwhile: a tick that opens alerts takes its time, and its messages must not bring the next one.
    mainTimer_.Stop();
    onMainTimer_();
    if (running_) mainTimer_.Start(interval_);
}

}  // namespace quillo
