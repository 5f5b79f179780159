#include <wx/app.h>
#include <xcb/xcb.h>

#include <cstdint>
#include <cstdlib>
#include <memory>

#include "gui/ScreenPixel.h"

namespace quillon::test {

wxColour ScreenPixel(wxPoint place) {
  const std::unique_ptr<xcb_connection_t, decltype(&xcb_disconnect)> server(xcb_connect(nullptr, nullptr),
                                                                            &xcb_disconnect);
  const xcb_screen_t* const screen = xcb_setup_roots_iterator(xcb_get_setup(server.get())).data;
  const auto asked = xcb_get_image(server.get(), XCB_IMAGE_FORMAT_Z_PIXMAP, screen->root,
                                   static_cast<std::int16_t>(place.x), static_cast<std::int16_t>(place.y), 1, 1, ~0U);
  const std::unique_ptr<xcb_get_image_reply_t, decltype(&std::free)> image(
      xcb_get_image_reply(server.get(), asked, nullptr), &std::free);
  if (image == nullptr || xcb_get_image_data_length(image.get()) < 3) return {};
  const std::uint8_t* const bytes = xcb_get_image_data(image.get());  // blue, green, red
  return {bytes[2], bytes[1], bytes[0]};
}

}  // namespace quillon::test
