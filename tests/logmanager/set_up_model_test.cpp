// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <map>
#include <random>
#include <set>
#include <string>
#include <vector>

#include "logmanager/callable.h"
#include "logmanager/default_log_manager.h"

namespace {

using boost::logging::default_log_manager;
using boost::logging::detail::CallableKind;
using boost::logging::detail::Log;
using boost::logging::detail::makeAppender;
using boost::logging::detail::makeModifier;
using boost::logging::detail::NamePattern;

/// The rules, word for word: every log replays all calls there ever were.
class Model {
 public:
  struct Connected {
    int index;
    std::string name;
    int id;
    bool operator==(const Connected&) const = default;
  };
  struct State {
    bool enabled = true;
    std::vector<Connected> modifiers;
    std::vector<Connected> appenders;
    bool operator==(const State&) const = default;
  };

  void record(const std::string& _pattern, const std::function<void(State&)>& _change) {
    calls_.push_back({_pattern, _change});
  }

  State stateOf(const std::string& _log) const {
    State state;
    for (const Call& call : calls_) {
      if (NamePattern(call.pattern).selects(_log)) call.change(state);
    }
    return state;
  }

 private:
  struct Call {
    std::string pattern;
    std::function<void(State&)> change;
  };
  std::vector<Call> calls_;
};

std::vector<Model::Connected>& of(Model::State& _state, CallableKind _kind) {
  return _kind == CallableKind::modifier ? _state.modifiers : _state.appenders;
}

/// A manager and the model of it, set up alike.
class Twins {
 public:
  void add(CallableKind _kind, const std::string& _pattern, const std::string& _name, int _index) {
    const int id = ++latestId_;
    const auto callable =
        _kind == CallableKind::modifier
            ? makeModifier([id](const std::string&, std::string& _text) { _text += std::to_string(id); }, _name, _index)
            : makeAppender([](const std::string&, const std::string&) {}, _name, _index);
    ids_[callable.get()] = id;
    manager_.connect(_pattern, callable);
    model_.record(_pattern, [=](Model::State& _state) {
      std::vector<Model::Connected>& all = of(_state, _kind);
      const auto place = std::find_if(all.begin(), all.end(), [=](const auto& _one) { return _one.index > _index; });
      all.insert(place, {_index, _name, id});
    });
  }

  void remove(CallableKind _kind, const std::string& _pattern, const std::string& _name) {
    manager_.disconnect(_pattern, _kind, _name);
    model_.record(_pattern, [=](Model::State& _state) {
      std::erase_if(of(_state, _kind), [&](const auto& _one) { return _one.name == _name; });
    });
  }

  void enable(const std::string& _pattern, bool _enabled) {
    manager_.enable(_pattern, _enabled);
    model_.record(_pattern, [=](Model::State& _state) { _state.enabled = _enabled; });
  }

  void createLog(const std::string& _name) {
    manager_.log(_name);
    names_.insert(_name);
  }

  void expectEqual() {
    for (const std::string& name : names_) {
      const Log& log = manager_.log(name);
      Model::State state;
      state.enabled = log.enabled.load();
      for (const CallableKind kind : {CallableKind::modifier, CallableKind::appender}) {
        if (log.callables.load() == nullptr) continue;
        for (const auto& callable : log.callables.load()->of(kind)) {
          of(state, kind).push_back({callable->index, callable->name, ids_.at(callable.get())});
        }
      }
      ASSERT_TRUE(state == model_.stateOf(name)) << "log \"" << name << '"';
    }
  }

 private:
  default_log_manager manager_;
  Model model_;
  std::set<std::string> names_;
  std::map<const void*, int> ids_;
  int latestId_ = 0;
};

class RandomCalls {
 public:
  explicit RandomCalls(unsigned int _seed) : random_(_seed) {}

  void make(Twins& _twins) {
    const CallableKind kind = random_() % 2 == 0 ? CallableKind::modifier : CallableKind::appender;
    const std::string name(1, static_cast<char>('M' + random_() % 3));
    switch (random_() % 6) {
      case 0:
      case 1:
        return _twins.createLog(text("ab."));
      case 2:
        return _twins.add(kind, pattern(), name, static_cast<int>(random_() % 3));
      case 3:
      case 4:
        return _twins.remove(kind, pattern(), name);
      default:
        return _twins.enable(pattern(), random_() % 2 == 0);
    }
  }

 private:
  std::string text(const std::string& _characters) {
    std::string result;
    for (auto size = random_() % 6; size > 0; --size)
      result += _characters[random_() % _characters.size()];
    return result;
  }

  std::string pattern() { return random_() % 6 == 0 ? "*" : text("ab.*"); }

  std::mt19937 random_;
};

TEST(SetUpModel, LogsCreatedAtAnyMomentEndInTheStateOfALogThatSawAllCalls) {
  for (unsigned int seed = 0; seed < 200; ++seed) {
    SCOPED_TRACE(seed);
    Twins twins;
    RandomCalls calls(seed);
    for (int i = 0; i < 120; ++i)
      calls.make(twins);
    twins.expectEqual();
    if (HasFatalFailure()) return;
  }
}

}  // namespace
