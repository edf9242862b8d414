#include <windows.h>

#include <cstring>
#include <map>
#include <string>

#include "platform/module.h"
#include "platform/windows/this_module.h"

namespace kvrnstep::platform {

namespace {

/// The head of an icon's resource and of an icon file alike.
struct Head {
  WORD reserved;
  WORD type;
  WORD count;
};

#pragma pack(push, 2)
/// What both say of an image before they tell where it is.
struct Image {
  BYTE width, height, colors, reserved;
  WORD planes, bits;
  DWORD size;
};
/// An image in the resource, with the number of the resource that holds it.
struct ResourceImage {
  Image image;
  WORD number;
};
/// An image in the file, with its place there.
struct FileImage {
  Image image;
  DWORD offset;
};
#pragma pack(pop)

template <class Struct>
void append(std::string& bytes, const Struct& value) {
  bytes.append(reinterpret_cast<const char*>(&value), sizeof(value));
}

/// The icon file that was taken apart when the resources were made.
std::string assembled(std::string_view group) {
  Head head{};
  std::memcpy(&head, group.data(), sizeof(head));
  std::string directory;
  std::string images;
  append(directory, head);
  const std::size_t firstImage = sizeof(head) + head.count * sizeof(FileImage);
  for (std::size_t i = 0; i < head.count; ++i) {
    ResourceImage entry{};
    std::memcpy(&entry, group.data() + sizeof(head) + i * sizeof(entry), sizeof(entry));
    append(directory, FileImage{entry.image, static_cast<DWORD>(firstImage + images.size())});
    images += resource(entry.number, RT_ICON);
  }
  return directory + images;
}

}  // namespace

std::optional<std::string_view> iconFile(int number) {
  static std::map<int, std::string> files;
  std::string& file = files[number];
  if (file.empty()) {
    const auto group = resource(number, RT_GROUP_ICON);
    if (group.empty()) return std::nullopt;
    file = assembled(group);
  }
  return file;
}

}  // namespace kvrnstep::platform
