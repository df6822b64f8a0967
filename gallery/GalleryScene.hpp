// A gallery scene: a named sample that builds dialogs on the headless toolkit, drives them the
// way a user would, and prints what they show. Scenes register themselves with WZ_GALLERY_SCENE.
#pragma once

#include <functional>
#include <ostream>
#include <string>
#include <vector>

namespace Gallery {

struct Scene {
    std::string name;         // what `wz-gallery NAME` runs
    std::string description;  // one line for `wz-gallery --list`
    std::function<void(std::ostream&)> run;
};

std::vector<Scene>& Scenes();

struct SceneRegistrar {
    SceneRegistrar(std::string name, std::string description, std::function<void(std::ostream&)> run)
    {
        Scenes().push_back({std::move(name), std::move(description), std::move(run)});
    }
};

// Prints a scene's step heading, so that every scene reads the same way.
void Step(std::ostream& out, const std::string& title);

}  // namespace Gallery

#define WZ_GALLERY_CONCAT2(a, b) a##b
#define WZ_GALLERY_CONCAT(a, b) WZ_GALLERY_CONCAT2(a, b)
#define WZ_GALLERY_SCENE(name, description)                                                               \
    static void WZ_GALLERY_CONCAT(GalleryScene_, __LINE__)(std::ostream & out);                            \
    static ::Gallery::SceneRegistrar WZ_GALLERY_CONCAT(galleryRegistrar_, __LINE__)(                       \
        name, description, &WZ_GALLERY_CONCAT(GalleryScene_, __LINE__));                                   \
    static void WZ_GALLERY_CONCAT(GalleryScene_, __LINE__)(std::ostream & out)
