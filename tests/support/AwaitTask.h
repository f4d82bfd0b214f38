#pragma once

#include <QCoroTask>
#include <QEventLoop>
#include <QTimer>
#include <chrono>
#include <optional>

// A free function, so the task lives in the coroutine frame.
template <typename T>
QCoro::Task<> storeTaskResult(QCoro::Task<T> task, std::optional<T>* result, QEventLoop* loop)
{
    result->emplace(co_await task);
    loop->quit();
}

// Runs the event loop until a task has finished and returns its result, or aborts
// after `limit`. (QCoro::waitFor needs a default-constructible result; Expected is not.)
template <typename T>
T awaitTask(QCoro::Task<T>&& task, std::chrono::milliseconds limit = std::chrono::seconds(30))
{
    std::optional<T> result;
    QEventLoop loop;
    auto storing = storeTaskResult(std::move(task), &result, &loop);
    QTimer::singleShot(limit, &loop, &QEventLoop::quit);
    if (!result)
        loop.exec();
    if (!result)
        qFatal("A task under test did not finish in time");
    return std::move(*result);
}
