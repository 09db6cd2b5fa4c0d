// The actions behind the commands, one function each. Each writes its result to stdout, or one line to stderr; a
// command that fails has written nothing to the store.
#pragma once

#include "tools/request.h"

namespace ostrand::tool {

Exit SaveGlobal(const Request& request);
Exit MergeGlobal(const Request& request);
Exit ListSessions(const Request& request);
Exit NewSession(const Request& request);
Exit CloneSession(const Request& request);
Exit RenameSessionPath(const Request& request);
Exit DeleteSessionPath(const Request& request);
Exit SummarizeSession(const Request& request);
Exit DiffSessions(const Request& request);
Exit ShowLogonActions(const Request& request);
Exit ApplyToAll(const Request& request);
Exit UndoApply(const Request& request);
Exit ImportSessions(const Request& request);
Exit ListProtocols(const Request& request);
Exit ImportSchemeFiles(const Request& request);
Exit ShowSynchronizeTasks(const Request& request);
Exit ListKeymap(const Request& request);
Exit CheckKeymap(const Request& request);
Exit ConvertKeymap(const Request& request);
Exit DiffKeymaps(const Request& request);
Exit ExplainKey(const Request& request);
Exit EncodeSecret(const Request& request);
Exit DecodeSecret(const Request& request);
Exit DumpStore(const Request& request);
Exit CheckStore(const Request& request);
Exit ListHistory(const Request& request);
Exit ShowHistory(const Request& request);
Exit DiffHistory(const Request& request);
Exit RestoreHistory(const Request& request);
Exit JoinPaths(const Request& request);
Exit SplitPathText(const Request& request);
Exit ExpandPath(const Request& request);
Exit CheckPath(const Request& request);
Exit ExecutableOf(const Request& request);
Exit ListTimeZones(const Request& request);
Exit BiasOfTimeZone(const Request& request);
/// For shell completion: names of values, paths of keys, names of time zones; of sessions and their values.
Exit CompleteValues(const Request& request);
Exit CompleteKeys(const Request& request);
Exit CompleteZones(const Request& request);
Exit CompleteSessions(const Request& request);
Exit CompleteFolders(const Request& request);
Exit CompleteSessionValues(const Request& request);

} // namespace ostrand::tool
