// SPDX-License-Identifier: MIT
#pragma once

// Without this the conversion would group digits as the global locale of the application does.
#define BOOST_LEXICAL_CAST_ASSUME_C_LOCALE
#include <boost/lexical_cast.hpp>
#include <string>

namespace Quillmark_logging {

/// A number in plain decimal digits, with a minus sign if it is negative. Throws boost::bad_lexical_cast for a value
/// that cannot be turned into text.
template <class Number>
std::string decimalText(const Number& _number) {
  return boost::lexical_cast<std::string>(_number);
}

}  // namespace Quillmark_logging
