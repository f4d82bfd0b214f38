#pragma once

#include <cstddef>
#include <cstdint>

// One entry per kind of outside input. Each takes arbitrary bytes, must never
// crash or hang, and checks what has to hold for every input; a broken
// property aborts, so libFuzzer and the replay tests both see it as a crash.
// All three return 0, as libFuzzer expects.
namespace stampixfuzz {

// The settings file as read at start-up and on import.
int settingsDocument(const std::uint8_t* data, std::size_t size);
// A product list response body.
int productResponse(const std::uint8_t* data, std::size_t size);
// A label template and a product, NUL-separated (see ZplTemplateEntry.cpp).
int zplTemplate(const std::uint8_t* data, std::size_t size);

} // namespace stampixfuzz
