#include <cstdio>

#include "command_model.h"
#include "generated_help.h"

/// Writes the documents that qln writes with --internal-generate, for a build that cannot run qln.
int main(int count, char** arguments) {
    quillo::qln::Options options;
    const std::string kind = count == 2 ? arguments[1] : "";
    const std::string text = quillo::qln::GeneratedHelp(*quillo::qln::BuildModel(options), kind);
    std::fwrite(text.data(), 1, text.size(), stdout);
    return text.empty() ? 1 : 0;
}
