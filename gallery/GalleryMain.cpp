// wz-gallery: `--list` lists the scenes, `wz-gallery NAME...` runs the named ones, no argument
// runs them all in name order.
#include "GalleryScene.hpp"

#include <algorithm>
#include <cstring>
#include <exception>
#include <iostream>

namespace Gallery {

std::vector<Scene>& Scenes()
{
    static std::vector<Scene> scenes;
    return scenes;
}

void Step(std::ostream& out, const std::string& title)
{
    out << "\n-- " << title << " --\n";
}

}  // namespace Gallery

namespace {

int RunScene(const Gallery::Scene& scene)
{
    std::cout << "==== " << scene.name << ": " << scene.description << " ====\n";
    try {
        scene.run(std::cout);
    } catch (const std::exception& e) {
        std::cout << "scene failed: " << e.what() << "\n";
        return 1;
    }
    std::cout << "\n";
    return 0;
}

}  // namespace

int main(int argc, char** argv)
{
    auto scenes = Gallery::Scenes();
    std::sort(scenes.begin(), scenes.end(), [](const auto& a, const auto& b) { return a.name < b.name; });

    if (argc > 1 && std::strcmp(argv[1], "--list") == 0) {
        for (const auto& scene : scenes)
            std::cout << scene.name << "  " << scene.description << "\n";
        return 0;
    }
    int failures = 0;
    if (argc == 1) {
        for (const auto& scene : scenes)
            failures += RunScene(scene);
        return failures == 0 ? 0 : 1;
    }
    for (int i = 1; i < argc; ++i) {
        auto it = std::find_if(scenes.begin(), scenes.end(), [&](const auto& s) { return s.name == argv[i]; });
        if (it == scenes.end()) {
            std::cerr << "no scene named " << argv[i] << " (see --list)\n";
            return 2;
        }
        failures += RunScene(*it);
    }
    return failures == 0 ? 0 : 1;
}
