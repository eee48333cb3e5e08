// SPDX-License-Identifier: MIT
// Boost.Log: a channel logger and a synchronous text file sink with automatic flush; queued: the asynchronous sink of
// the same.
#include <boost/log/attributes/clock.hpp>
#include <boost/log/core.hpp>
#include <boost/log/expressions.hpp>
#include <boost/log/sinks.hpp>
#include <boost/log/sources/record_ostream.hpp>
#include <boost/log/sources/severity_channel_logger.hpp>
#include <boost/log/support/date_time.hpp>
#include <boost/make_shared.hpp>

#include "bench/message.h"
#include "bench/subject.h"

namespace bench {
namespace {

namespace log = boost::log;
namespace expr = boost::log::expressions;
namespace keywords = boost::log::keywords;

using Source = log::sources::severity_channel_logger_mt<int, std::string>;

class BoostLog final : public Subject {
 public:
  ~BoostLog() override { log::core::get()->remove_all_sinks(); }

  bool openPlain(const std::string& _file) override {
    return use<log::sinks::synchronous_sink<log::sinks::text_file_backend>>(
        boost::make_shared<log::sinks::text_file_backend>(keywords::file_name = _file,
                                                          keywords::open_mode = std::ios_base::app));
  }

  bool openRolling(const std::string& _file, int _bytes, int _files) override {
    const auto backend = boost::make_shared<log::sinks::text_file_backend>(
        keywords::file_name = _file, keywords::target_file_name = _file + ".%N", keywords::rotation_size = _bytes,
        keywords::open_mode = std::ios_base::app);
    backend->set_file_collector(log::sinks::file::make_collector(
        keywords::target = _file + ".old", keywords::max_files = static_cast<std::size_t>(_files - 1)));
    return use<log::sinks::synchronous_sink<log::sinks::text_file_backend>>(backend);
  }

  bool openQueued(const std::string& _file) override {
    return use<log::sinks::asynchronous_sink<log::sinks::text_file_backend>>(
        boost::make_shared<log::sinks::text_file_backend>(keywords::file_name = _file,
                                                          keywords::open_mode = std::ios_base::app));
  }

  void logLines(int _count) override {
    thread_local Source source(keywords::channel = logName, keywords::severity = 1);
    for (int i = 0; i < _count; ++i) {
      BOOST_LOG_SEV(source, 1) << BENCH_MESSAGE_HEAD << firstInteger + i << BENCH_MESSAGE_TAIL;
    }
  }

  bool logOffLines(int _count) override {
    Source source(keywords::channel = "off", keywords::severity = 1);
    log::core::get()->set_filter(expr::attr<int>("Severity") > 5);
    for (int i = 0; i < _count; ++i) {
      BOOST_LOG_SEV(source, 1) << BENCH_MESSAGE_HEAD << firstInteger + i << BENCH_MESSAGE_TAIL;
    }
    return true;
  }

 private:
  template <typename Sink>
  static bool use(const boost::shared_ptr<log::sinks::text_file_backend>& _backend) {
    _backend->auto_flush(true);
    const auto sink = boost::make_shared<Sink>(_backend);
    sink->set_formatter(
        expr::stream << "[" << expr::attr<std::string>("Channel") << "] "
                     << expr::format_date_time<boost::posix_time::ptime>("TimeStamp", "%Y%m%d %H:%M:%S.%f") << " "
                     << expr::smessage);
    log::core::get()->add_global_attribute("TimeStamp", log::attributes::local_clock());
    log::core::get()->add_sink(sink);
    return true;
  }
};

}  // namespace

std::unique_ptr<Subject> makeBoostLog() { return std::make_unique<BoostLog>(); }

}  // namespace bench
