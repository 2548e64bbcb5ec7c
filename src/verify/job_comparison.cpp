#include "verify/job_comparison.h"

namespace brindle {

void CJobComparison::RunStarts(RunContext& run) {
    follower_ = std::make_unique<CJobFollower>(run, *this, options_);
    const ProgramOptions& programs = run.options.programs;
    has_subs_ = programs.use_subs && run.controller.job.tile_to_output == 0 && run.geometry.GetVariantCount() > 0;
    main_waits_ = has_subs_ && !programs.subs_first && !programs.sub_numbers_by_block;
}

void CJobComparison::SegmentStarts() {
    if (has_subs_) follower_->SubsAreTorn();
    To().SegmentStarts();
}

void CJobComparison::ProgramStarts(int32_t variant) {
    in_program_ = true;
    if (variant >= 0 || main_waits_) {
        taping_ = &texts_[variant];
        *taping_ = {};
    }
    if (taping_ == nullptr) follower_->ProgramStarts(variant);
    main_is_due_ |= variant < 0 && main_waits_;
}

void CJobComparison::ProgramEnds() {
    in_program_ = false;
    if (taping_ == nullptr) follower_->ProgramEnds();
    taping_ = nullptr;
}

// What comes after all programs comes after a main program that waits.
CRunLog& CJobComparison::To() {
    if (taping_ != nullptr) return *taping_;
    if (!in_program_ && main_is_due_) ReplayMain();
    return *follower_;
}

void CJobComparison::ReplayMain() {
    main_is_due_ = false;
    follower_->ProgramStarts(-1);
    texts_[-1].Replay(*follower_);
    follower_->ProgramEnds();
    follower_->MainRunsOn();
    texts_.erase(-1);
}

bool CJobComparison::ReplayProgram(int32_t variant, CRunLog& log) const {
    const auto found = texts_.find(variant);
    if (found == texts_.end()) return false;
    found->second.Replay(log);
    return true;
}

void CJobComparison::RunEnds() {
    if (main_is_due_) ReplayMain();
    follower_->Finish();
    losses_ = std::move(follower_->losses());
    follower_.reset();
}

}  // namespace brindle
