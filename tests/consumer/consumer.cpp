// SPDX-License-Identifier: MIT
#include <boost/logging/logging.hpp>
#include <iostream>

#include "quillmark_logging.h"
#include "quillmark_logging_names.h"

namespace {

boost::logging::logger consumerLog("Consumer.info");

}  // namespace

int main() {
  if (!Quillmark_logging::initDefaultLogs("consumer", false)) {
    std::cerr << "The set-up failed.\n";
    return 1;
  }
  QMRK_LOG(consumerLog) << "a line of the consumer";
  std::cout << "Library version " << Quillmark_logging::getQuillmarkLoggingVersion() << '\n';
  return 0;
}
