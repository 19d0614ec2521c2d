#include "Capture/SampleRules.h"

namespace ambrel {

std::vector<AppRule> sampleRules() {
    AppRule discord(sampleThatHides, "Discord");
    discord.quitWhenHidden = true;
    discord.idleBehavior = AppRule::IdleBehavior::quit;
    discord.idleThresholdMinutes = 45;
    AppRule music("com.apple.Music", "Music");
    music.quitOnLastWindowClose = false;
    music.idleBehavior = AppRule::IdleBehavior::hide;
    AppRule web("com.apple.Safari", "Web");
    web.includedInQuitAll = false;
    return {AppRule("com.apple.calculator", "Calculator"),
            discord,
            AppRule("com.apple.Preview", "Document Viewer"),
            AppRule("com.apple.Maps", "Maps"),
            music,
            AppRule("com.apple.TextEdit", "Text Editor"),
            web};
}

} // namespace ambrel
