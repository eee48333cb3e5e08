// SPDX-License-Identifier: MIT
#include <utility>
#include <vector>

#include "logmanager/default_log_manager.h"

namespace boost::logging {

// Without a lock, so that the function may do what it likes. The names live as long as the manager.
void list_logs(default_log_manager& _manager, const boost::function<void(const std::string&, bool)>& _visit) {
  std::vector<std::pair<const std::string*, bool>> logs;
  _manager.forEachLog([&logs](const detail::Log& _log) {
    logs.emplace_back(&_log.name, _log.enabled.load(std::memory_order_relaxed));
  });
  for (const auto& [name, isOn] : logs)
    _visit(*name, isOn);
}

}  // namespace boost::logging
