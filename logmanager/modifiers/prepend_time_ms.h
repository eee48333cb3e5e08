// SPDX-License-Identifier: MIT
#pragma once

#include "boost/logging/callables.hpp"
#include "logmanager/modifiers/time_stamp.h"

namespace boost::logging {

/// What the copies of a prepend_time_ms share.
class prepend_time_ms::format : public detail::TimeStamp {
 public:
  using TimeStamp::TimeStamp;
};

}  // namespace boost::logging
