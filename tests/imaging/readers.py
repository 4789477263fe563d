"""Programs by others that read pictures. Each gives the picture's bytes red,
green, blue, alpha, row by row from the top; of a GIF only the image, without
what the screen has around it."""

import os
import subprocess

from PIL import Image

TIMEOUT = 120


def run(*command, cwd=None):
    """Standard output; the program must succeed without warnings."""
    done = subprocess.run(command, cwd=cwd, stdin=subprocess.DEVNULL, stdout=subprocess.PIPE,
                          stderr=subprocess.PIPE, timeout=TIMEOUT, check=False)
    if done.returncode != 0 or done.stderr:
        raise AssertionError(f"{' '.join(command)[:500]}: {done.returncode} "
                             f"{done.stderr.decode(errors='replace')[:2000]}")
    return done.stdout


def crop(pixels, mode, screen, box):
    """The part inside the box (left, top, right, bottom), with alpha."""
    return Image.frombytes(mode, screen, pixels).crop(box).convert("RGBA").tobytes()


def pillow(path, box):
    with Image.open(path) as image:
        return image.convert("RGBA").crop(box).tobytes()


def imagemagick(paths, sizes):
    """All of the files at once; a size is (width, height)."""
    out = run("convert", *paths, "-depth", "8", "rgba:-")
    pictures = []
    for width, height in sizes:
        pictures.append(out[:4 * width * height])
        out = out[4 * width * height:]
    if out:
        raise AssertionError("more pixels than the pictures have")
    return pictures


def gif2rgb(path, screen, box):
    """Knows no transparency."""
    return crop(run("gif2rgb", "-1", "-o", "/dev/stdout", path), "RGB", screen, box)


def ffmpeg(paths, screens, boxes):
    """A handful of files at once. A transparent pixel is 0, 0, 0, 0."""
    command = ["ffmpeg", "-v", "error", "-nostdin", "-threads", "1"]
    for path in paths:
        command += ["-i", path]
    for at, path in enumerate(paths):
        command += ["-map", str(at), "-frames:v", "1", "-f", "rawvideo", "-pix_fmt", "rgba",
                    "-y", path + ".raw"]
    run(*command)
    pictures = []
    for path, screen, box in zip(paths, screens, boxes):
        with open(path + ".raw", "rb") as file:
            pictures.append(crop(file.read(), "RGBA", screen, box))
        os.remove(path + ".raw")
    return pictures


def giftext(path):
    """What giftext says of the file; it must have reached the file's end."""
    text = run("giftext", path).decode("latin-1")
    if "GIF file terminated normally." not in text:
        raise AssertionError(f"{path}: {text[-500:]}")
    return text


def gifsicle_info(paths):
    return run("gifsicle", "--info", *paths).decode("latin-1")


def gifsicle_rewrite(paths):
    """Decodes and encodes the files again, in their places."""
    run("gifsicle", "--batch", "--interlace", *paths)
