#!/usr/bin/env bash
# Renders the SVG artwork in resources/art into the PNG files the program
# compiles in (resources/resources.qrc). Run after changing any SVG, then
# commit the PNGs with it. Needs rsvg-convert (Debian: librsvg2-bin).
set -euo pipefail
root="$(cd "$(dirname "$0")/.." && pwd)"
art="$root/resources/art"
out="$root/resources"

# render SOURCE WIDTH HEIGHT DESTINATION (relative to resources/)
render() {
  mkdir -p "$(dirname "$out/$4")"
  rsvg-convert --width "$2" --height "$3" --keep-aspect-ratio \
    --output "$out/$4" "$art/$1.svg"
}

# The application icon in its three sizes.
for size in 48 32 16; do
  render VelloraIcon "$size" "$size" "icons/VelloraIcon${size}x${size}.png"
done

# The desktop's icon theme (hicolor) for the menu entry, beside the
# scalable SVG itself (packaging/CMakeLists.txt installs both).
for size in 16 24 32 48 64 128 256; do
  render VelloraIcon "$size" "$size" \
    "../packaging/icons/hicolor/${size}x${size}/apps/com.tessaline.Vellora.png"
done

# Main toolbar: 56 x 42.
for name in recent open_img configure exit help about zoom_out zoom_in zoom_actual pick_screen; do
  render "btn_toolbar_$name" 56 42 "widgets/toolbar/btn_toolbar_$name.png"
done

# Page toolbars: 46 x 34; the clear button of a selection row is 16 x 16.
for name in pick pick_drag pick_single multi_done maintain match add_data add_lib \
            new_data open_data save_data save_data_mod save_as_data table; do
  render "btn_toolbar_$name" 46 34 "widgets/sm_toolbar/btn_toolbar_$name.png"
done
render btn_toolbar_multi_clear 16 16 widgets/sm_toolbar/btn_toolbar_multi_clear.png

# Grid buttons: 16 x 16.
render gridEdit 16 16 widgets/other/gridEdit.png
render gridDelete 16 16 widgets/other/gridDelete.png

# Help window toolbar: 50 x 38.
for name in home back forward print close; do
  render "btn_help_$name" 50 38 "widgets/help/btn_help_$name.png"
done

# The tip of the day's light bulb.
render LightBulb 64 64 LightBulb.png
