// SPDX-License-Identifier: MIT
#include "tools/qmrkctl/ca_choice.h"

#include "quillmark_logging_names.h"
#include "tools/qmrkctl/check/similar_name.h"
#include "tools/qmrkctl/command_report.h"
#include "tools/qmrkctl/shown_text.h"

namespace qmrkctl {
namespace {

const char* originName(CaOrigin _origin) {
  if (_origin == CaOrigin::option) return "option";
  return _origin == CaOrigin::environment ? "DEFAULT_CA_NR" : "default";
}

}  // namespace

std::string caText(const Configuration& _configuration) {
  const std::string origin = _configuration.origin == CaOrigin::option        ? "named on the command line"
                             : _configuration.origin == CaOrigin::environment ? "from DEFAULT_CA_NR"
                                                                              : "the built-in default";
  std::string text = "CA " + _configuration.caAsked + " (" + origin + ")";
  if (_configuration.isFallenBack) text += ", whose .cfg file is missing";
  if (_configuration.wouldBeGenerated) text += "; a set-up would generate a generic file";
  if (_configuration.isRedirected) text += "; GE is redirected to " + _configuration.caOfFiles;
  return text;
}

Json caJson(const Configuration& _configuration) {
  return {{"asked", _configuration.caAsked},           {"origin", originName(_configuration.origin)},
          {"inEffect", _configuration.caInEffect},     {"files", _configuration.caOfFiles},
          {"fallenBack", _configuration.isFallenBack}, {"wouldBeGenerated", _configuration.wouldBeGenerated}};
}

bool isNamedCaMissing(const Configuration& _configuration) {
  return _configuration.origin == CaOrigin::option && _configuration.isFallenBack &&
         !isSameIgnoringCase(_configuration.caAsked, Quillmark_logging::GENERIC_CA);
}

void tellOtherCa(const Configuration& _configuration) {
  if (!isNamedCaMissing(_configuration)) return;
  Report::message(shown(_configuration.caAsked) + " has no .cfg file; this is " + shown(_configuration.caOfFiles));
}

}  // namespace qmrkctl
