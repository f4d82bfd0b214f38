#pragma once

#include <QCoroTask>
#include <QEventLoop>
#include <QTimer>
#include <chrono>
#include <cstdlib>
#include <optional>

// Runs the event loop until a task has finished and returns its result; a task
// that outlives `limit` aborts the test program instead of hanging it.
namespace runtask_detail {

template <typename T>
QCoro::Task<> store(QCoro::Task<T> task, std::optional<T>* result, QEventLoop* loop)
{
    result->emplace(co_await task);
    loop->quit();
}

} // namespace runtask_detail

template <typename T> T runTask(QCoro::Task<T>&& task, std::chrono::milliseconds limit)
{
    std::optional<T> result;
    QEventLoop loop;
    auto storing = runtask_detail::store(std::move(task), &result, &loop);
    if (!result) {
        QTimer::singleShot(limit, &loop, &QEventLoop::quit);
        loop.exec();
    }
    if (!result)
        qFatal("A task under test was still running after %lld ms",
               static_cast<long long>(limit.count()));
    return std::move(*result);
}
