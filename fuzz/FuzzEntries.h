#pragma once

#include <cstddef>
#include <cstdint>

// One entry per kind of outside input. Each takes any bytes, must never crash
// or hang, and aborts when a property it checks is broken, so libFuzzer and
// the replay tests both see a crash. All return 0, as libFuzzer expects.
namespace stampixfuzz {

int settingsDocument(const std::uint8_t* data, std::size_t size);
int productResponse(const std::uint8_t* data, std::size_t size);
// A label template and a product, NUL-separated (see LabelInput.h).
int zplTemplate(const std::uint8_t* data, std::size_t size);
int labelRender(const std::uint8_t* data, std::size_t size);
int printerStatus(const std::uint8_t* data, std::size_t size);
int appcast(const std::uint8_t* data, std::size_t size);

} // namespace stampixfuzz
