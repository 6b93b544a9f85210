#include "core/SerialQueue.h"

#include <pthread.h>

namespace nubo {

SerialQueue::SerialQueue(const QString& name)
{
    m_thread = std::thread([this, name] { run(name); });
}

SerialQueue::~SerialQueue()
{
    {
        const std::lock_guard lock(m_mutex);
        m_stopping = true;
    }
    m_changed.notify_all();
    m_thread.join();
}

void SerialQueue::post(std::function<void()> task)
{
    {
        const std::lock_guard lock(m_mutex);
        m_tasks.push_back(std::move(task));
    }
    m_changed.notify_all();
}

void SerialQueue::drain()
{
    std::unique_lock lock(m_mutex);
    m_changed.wait(lock, [this] { return m_tasks.empty() && !m_running; });
}

void SerialQueue::run(const QString& name)
{
    pthread_setname_np(pthread_self(), name.left(15).toUtf8().constData());
    std::unique_lock lock(m_mutex);
    while (true) {
        m_changed.wait(lock, [this] { return m_stopping || !m_tasks.empty(); });
        if (m_tasks.empty()) {
            return; // stopping, and nothing left to do
        }
        std::function<void()> task = std::move(m_tasks.front());
        m_tasks.pop_front();
        m_running = true;
        lock.unlock();
        task();
        lock.lock();
        m_running = false;
        m_changed.notify_all();
    }
}

} // namespace nubo
