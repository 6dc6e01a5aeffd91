#pragma once

#include <algorithm>
#include <atomic>
#include <chrono>
#include <semaphore>
#include <thread>

#include <QCoreApplication>
#include <QEvent>
#include <QObject>

namespace quorvel {

/// Asks, as a user does who clicks all the time, how long the message loop takes to answer: a thread posts an
/// event, waits for it to be handled, and posts the next a millisecond later.
class ClickWatch : public QObject {
 public:
  ClickWatch() : thread_([this](const std::stop_token& stop) { Click(stop); }) {}
  ~ClickWatch() override {
    thread_.request_stop();
    answered_.release();
    thread_.join();
  }

  /// The slowest answer so far. A click that has not been answered yet counts from when it was made.
  double LongestSeconds() const { return longest_; }

 protected:
  bool event(QEvent* event) override {
    if (event->type() != QEvent::User) return QObject::event(event);
    const std::chrono::duration<double> taken = Clock::now() - clicked_.load();
    longest_ = std::max(longest_, taken.count());
    answered_.release();
    return true;
  }

 private:
  using Clock = std::chrono::steady_clock;

  void Click(const std::stop_token& stop) {
    while (!stop.stop_requested()) {
      clicked_ = Clock::now();
      QCoreApplication::postEvent(this, new QEvent(QEvent::User));
      answered_.acquire();
      std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
  }

  std::atomic<Clock::time_point> clicked_{};
  std::counting_semaphore<> answered_{0};
  double longest_ = 0;  // of the thread of the message loop
  std::jthread thread_;
};

}  // namespace quorvel
