#include "cli/progress_bar.h"

#include <algorithm>
#include <cstdio>
#include <utility>

#include <sys/ioctl.h>
#include <unistd.h>

#include <fmt/format.h>

#include "data/control_escapes.h"

namespace quorvel {

namespace {

constexpr auto kDrawInterval = std::chrono::milliseconds(100);
constexpr int kGaugeColumns = 30;
constexpr int kUsualColumns = 80;

int TerminalColumns() {
  winsize size{};
  if (::ioctl(STDERR_FILENO, TIOCGWINSZ, &size) != 0 || size.ws_col == 0) return kUsualColumns;
  return size.ws_col;
}

}  // namespace

std::string ProgressLine(int percent, std::string_view message, int columns) {
  const int filled = std::clamp(percent, 0, 100) * kGaugeColumns / 100;
  std::string line = fmt::format("[{:#<{}}{:.<{}}] {:3} % {}", "", filled, "", kGaugeColumns - filled,
                                 percent, WithEscapes(message));
  // The last column stays free: a full line would make some terminals scroll.
  if (std::cmp_greater_equal(line.size(), columns))
    line.resize(static_cast<std::size_t>(std::max(columns - 1, 0)));
  return line;
}

ProgressBar::ProgressBar() : nextDraw_(Clock::now() + kDrawInterval) {}

ProgressBar::~ProgressBar() {
  Wipe();
}

void ProgressBar::SetMessageText(std::string_view text) {
  message_ = text;
  DrawInTime();
}

void ProgressBar::ShowProgress(bool show) {
  shown_ = show;
  if (!show) Wipe();
}

void ProgressBar::SetProgressPos(int percent) {
  percent_ = percent;
  DrawInTime();
}

void ProgressBar::DrawInTime() {
  if (!shown_ || Clock::now() < nextDraw_) return;
  Draw();
  nextDraw_ = Clock::now() + kDrawInterval;
}

void ProgressBar::Draw() {
  const std::string line = ProgressLine(percent_, message_, TerminalColumns());
  std::fprintf(stderr, "\r%s\033[K", line.c_str());
  onScreen_ = true;
}

void ProgressBar::Wipe() {
  if (onScreen_) std::fputs("\r\033[K", stderr);
  onScreen_ = false;
}

std::unique_ptr<Feedback> MakeFeedback(ProgressDisplay display) {
  if (display == ProgressDisplay::OnTerminal && ::isatty(STDERR_FILENO) == 1)
    return std::make_unique<ProgressBar>();
  return std::make_unique<NullFeedback>();
}

}  // namespace quorvel
