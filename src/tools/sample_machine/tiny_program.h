#pragma once

#include <string>

namespace nrd::sample_machine {

/// The bytes of a whole Windows program of 32 or 64 `bits` that ends at once with exit code 0. It
/// needs no library and shows no window. Throws std::invalid_argument for other numbers.
std::string tiny_program(int bits);

} // namespace nrd::sample_machine
