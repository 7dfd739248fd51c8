// The application folder (AppPath): where it lies and how a new one is made from the files that an
// installation ships. The mains call this before anything else. Environment, home folder and executable are
// passed in.
#pragma once

#include <optional>
#include <string>
#include <system_error>

#include "base/files.h"

namespace brantlow {

// What decides where the application folder lies.
struct StartPlaces {
    std::string brantlowHome;  // $BRANTLOW_HOME, empty when unset
    Path home;                 // the user's home folder
    Path executable;           // the running program's file
};

// The value of an environment variable, empty where it is unset.
std::string EnvironmentText(const char* name);

// The running program's places: environment, password entry where $HOME is unset, /proc/self/exe.
StartPlaces CurrentStartPlaces();

// $BRANTLOW_HOME when set, else the executable's folder when it holds Data/, else Brantlow/ in the home
// folder. An absolute path without a closing separator; nothing is made.
Path ResolveAppPath(const StartPlaces& places);

// The folder of shipped files (Data/, Help/, practice/ ...): assets/ beside the executable or beside one of
// the folders above it, else share/brantlow beside the executable's folder. Nothing where none holds Data/.
std::optional<Path> FindAssets(const Path& executable);

// True while a folder holds no Data/, or one without settings and without a table (somebody has laid hosts or
// keys there beforehand), so that it has to be made before the program can use it.
bool NeedsMaking(const Path& appPath);

// Makes Data/, Quotes/EOD/, Images/, Help/, "Back Up/" and "Back Up/Data/" in `appPath` and copies the
// shipped files into them. A file that is there already, whatever it is, stays as it is; a Data/ with
// settings gets no settings file that is for new folders only. The first failure is returned; what was made
// until then stays and a further call goes on from there. NeedsMaking holds until everything is in place.
std::error_code MakeAppFolder(const Path& assets, const Path& appPath);

}  // namespace brantlow
