#!/usr/bin/env bash
# media-samples.sh FOLDER [SECONDS]: makes short films (160 by 120 pixels, colour bars or a moving ball, and a tone) and
# songs in the folder, three seconds each, in the formats that the player plays. Existing files are kept unless they are
# older than this script. Needs gstreamer1.0-tools and prints a message if they are missing: tests skip missing files.
set -euo pipefail
folder=${1:?usage: media-samples.sh FOLDER [SECONDS]}
seconds=${2:-3}
pieces=$((25 * seconds))
command -v gst-launch-1.0 >/dev/null || { echo "media-samples.sh: gst-launch-1.0 is missing: no samples" && exit 0; }
mkdir -p "$folder"

picture="videotestsrc num-buffers=$pieces ! video/x-raw,format=I420,width=160,height=120,framerate=25/1"
tone="audiotestsrc num-buffers=$pieces samplesperbuffer=1764 volume=0.2 ! audio/x-raw,rate=44100,channels=2 ! audioconvert"

# sample NAME PIPELINE: writes the pipeline's output to the file, under a temporary name until it is complete.
sample() {
  local file=$folder/$1
  local half=$folder/half-made.$$
  [ -s "$file" ] && [ "$file" -nt "$0" ] && return 0
  local status=0
  # Encoders sometimes hang, so they are retried.
  for _ in 1 2 3 4 5; do
    status=0
    # shellcheck disable=SC2086
    timeout -k 1 $((5 + seconds)) gst-launch-1.0 -q $2 ! filesink location="$half" >/dev/null || status=$?
    [ "$status" -eq 124 ] || [ "$status" -eq 137 ] || break
  done
  if [ "$status" -eq 0 ]; then
    mv "$half" "$file"
  else
    rm -f "$half"
    echo "media-samples.sh: ${file##*/} cannot be made ($status): a plug-in is missing, or it takes too long" >&2
  fi
}

moving="videotestsrc pattern=ball ${picture#videotestsrc }"

# film NAME ENCODER MUXER SOUND-ENCODER [PICTURE].
film() { sample "$1" "${5:-$picture} ! $2 ! queue ! $3 name=mux $tone ! $4 ! queue ! mux. mux."; }

sample tone.wav "$tone ! audio/x-raw,format=S16LE ! wavenc"
sample tone.mp3 "$tone ! lamemp3enc target=bitrate bitrate=128 cbr=true"
sample sound.avi "$tone ! avimux"
# Not avmux_mpeg, which sets the first pack's clock a hundredth of a millisecond late. GStreamer's demuxer then takes
# the first picture for one before the film, and ends there if it has a stop position, as it always has in Wine.
film mpeg1.mpg 'mpeg2enc format=0' 'mplex format=0' 'avenc_mp2 ! mpegaudioparse'
film moving.mpg 'mpeg2enc format=0' 'mplex format=0' 'avenc_mp2 ! mpegaudioparse' "$moving"
film mpeg4.avi avenc_mpeg4 avimux identity
film mjpeg.avi jpegenc avimux identity
film raw.avi 'videoconvert ! video/x-raw,format=BGR' avimux identity
