#include "Commands.h"
#include "EditedDocument.h"

#include <memory>

namespace {

struct SetOptions : EditOptions {
    std::vector<std::string> assignments;  // KEY=VALUE
};

// Constraints have no "=" in their keys, so the first one ends the key.
void SetAll(DocumentEdit& edit, const std::vector<std::string>& assignments) {
    for (const std::string& assignment : assignments) {
        const std::size_t end = assignment.find('=');
        if (end == std::string::npos)
            throw CommandError(ExitCode::WrongUsage, "set: \"" + assignment + "\" is not KEY=VALUE");
        edit.Set(assignment.substr(0, end), assignment.substr(end + 1));
    }
}

}  // namespace

void AddSet(CommandLine& commandLine) {
    const auto options = std::make_shared<SetOptions>();
    CLI::App& command = commandLine.Add(
        "set", "Set values of a rule document by their keys; what a dialog would refuse is refused here",
        {"mfxhost set rules.xml 19010/10067=6mm \"19040/29183/1/angle1=1.5 deg\"",
         "mfxhost set rules.xml 19010/Bronze=present 19010/Bronze/10067=3mm \\",
         "    19010/Bronze/10068=\"0.5 in\" --dry-run"},
        [options](const RuleModule& module) {
            return EditValues(module, *options,
                              [&](DocumentEdit& edit) { SetAll(edit, options->assignments); });
        });
    AddEditOptions(command, *options);
    command
        .add_option("KEY=VALUE", options->assignments,
                    "Value to set. show --json tells the keys. A number may have a unit; \"no limit\" and - "
                    "stand for a bound that is none and a value that is not given; present and none add and "
                    "remove a whole row or constraint")
        ->type_name("")
        ->required();
}
