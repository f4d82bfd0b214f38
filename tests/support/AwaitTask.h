#pragma once

#include <QCoroTask>
#include <QEventLoop>
#include <QTimer>
#include <chrono>
#include <optional>

// Runs the event loop until a task has finished and returns its result.
// (QCoro::waitFor needs a default-constructible result, which Expected is not.)
namespace awaittask_detail {

template <typename T>
QCoro::Task<> store(QCoro::Task<T> task, std::optional<T>* result, QEventLoop* loop)
{
    result->emplace(co_await task);
    loop->quit();
}

} // namespace awaittask_detail

template <typename T>
T awaitTask(QCoro::Task<T>&& task, std::chrono::milliseconds limit = std::chrono::seconds(30))
{
    std::optional<T> result;
    QEventLoop loop;
    auto storing = awaittask_detail::store(std::move(task), &result, &loop);
    if (!result) {
        QTimer::singleShot(limit, &loop, &QEventLoop::quit);
        loop.exec();
    }
    if (!result)
        qFatal("A task under test did not finish in time");
    return std::move(*result);
}
