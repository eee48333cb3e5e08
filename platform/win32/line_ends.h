// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace platform {

/// The text with a carriage return before every line feed, as the C run-time writes it to a text file.
std::string withCarriageReturns(std::string_view _text);

/// How many bytes of the text are complete in the first _written bytes of its translation.
std::size_t sizeBeforeTranslation(std::string_view _text, std::size_t _written);

}  // namespace platform
