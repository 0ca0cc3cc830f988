#pragma once

#include <string>
#include <vector>

/// A file of a large picture.
struct SamplePicture {
    std::string name; // of its format
    std::string path;
    std::string type; // as the table of file types has it
};

/// Makes one picture of 24 megapixels in several formats, with the grain of a photograph, unless they are
/// there already. libvips has to be initialised.
std::vector<SamplePicture> MakePictures(const std::string& folder);
