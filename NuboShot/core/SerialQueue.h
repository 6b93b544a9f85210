#pragma once

#include <QString>

#include <condition_variable>
#include <deque>
#include <functional>
#include <mutex>
#include <thread>

namespace nubo {

// One thread of its own that runs the tasks posted to it, one at a time, in
// the order posted. The destructor runs what is queued, then joins.
class SerialQueue {
public:
    // `name` is the thread's name (15 characters are kept).
    explicit SerialQueue(const QString& name);
    ~SerialQueue();
    SerialQueue(const SerialQueue&) = delete;
    SerialQueue& operator=(const SerialQueue&) = delete;

    void post(std::function<void()> task);
    // Waits until every task posted before has run.
    void drain();

private:
    void run(const QString& name);

    std::mutex m_mutex;
    std::condition_variable m_changed;
    std::deque<std::function<void()>> m_tasks;
    bool m_running = false; // a task is running now
    bool m_stopping = false;
    std::thread m_thread;
};

} // namespace nubo
