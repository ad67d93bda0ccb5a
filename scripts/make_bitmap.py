#!/usr/bin/env python3
"""make_bitmap.py SVG BMP: draws a picture as a bitmap of 256 colours, for the resource libraries.

Needs rsvg-convert (Debian: librsvg2-bin) and Pillow (python3-pil)."""

import io
import subprocess
import sys

from PIL import Image

drawing, bitmap = sys.argv[1:]
png = subprocess.run(["rsvg-convert", drawing], check=True, stdout=subprocess.PIPE).stdout
Image.open(io.BytesIO(png)).convert("RGB").quantize(256).save(bitmap, "BMP")
