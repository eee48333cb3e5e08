// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace Quillmark_logging {

// Where the files of a customer adaptation (CA) are, below the base folders of the system: functions on values, safe
// from any thread.

enum class CfgFileKind { cfg, init };

/// The path of a CA's file, before any redirection.
/// @param _base the machine-wide folder of shared program files for a .cfg file, that of application data for an .init
///   file.
/// @param _ca as it is to stand in the name.
std::string cfgFilePath(CfgFileKind _kind, const std::string& _base, const std::string& _ca);

/// The path of the generic .cfg file, which names the CA that answers requests for "GE".
std::string genericCfgPath(const std::string& _base);

/// The path of the generic file of a kind, turned into that of the CA to which the generic .cfg file redirects. The CA
/// stays in its letter case.
std::string redirectedPath(CfgFileKind _kind, const std::string& _genericPath, const std::string& _redirectCa);

}  // namespace Quillmark_logging
