#!/usr/bin/env python3
"""Draws the program's icon (toldex.png, 256x256) with no library but the standard one:
a blue tile with a white T, the bench's orange screwdriver across it.
    python3 src/shell/recursos/gerar_icone.py
"""
import math
import os
import struct
import zlib

TAM = 256
AMOSTRAS = 3  # per side, for smooth edges

def dentro_tile(x, y):
    r, m = 44, 8
    x0, y0, x1, y1 = m, m, TAM - m, TAM - m
    if x < x0 or x > x1 or y < y0 or y > y1:
        return False
    cx = min(max(x, x0 + r), x1 - r)
    cy = min(max(y, y0 + r), y1 - r)
    return (x - cx) ** 2 + (y - cy) ** 2 <= r * r

def dentro_t(x, y):
    return (52 <= x <= 204 and 54 <= y <= 96) or (107 <= x <= 149 and 54 <= y <= 206)

def dentro_chave(x, y):
    # A bar at 45 degrees from the lower left to the upper right, with a round handle.
    ux, uy = math.cos(-math.pi / 4), math.sin(-math.pi / 4)
    px, py = x - 70, y - 186
    ao_longo = px * ux + py * uy
    de_lado = abs(-px * uy + py * ux)
    if 0 <= ao_longo <= 150 and de_lado <= 9:
        return "haste"
    if -40 <= ao_longo <= 0 and de_lado <= 18:
        return "cabo"
    return None

def cor(x, y):
    chave = dentro_chave(x, y)
    if chave == "cabo":
        return (235, 120, 30, 255)
    if chave == "haste":
        return (250, 170, 60, 255)
    if dentro_t(x, y):
        return (255, 255, 255, 255)
    if dentro_tile(x, y):
        t = y / TAM
        return (int(30 + 20 * t), int(90 - 30 * t), int(160 - 40 * t), 255)
    return (0, 0, 0, 0)

def pixel(x, y):
    soma = [0, 0, 0, 0]
    for i in range(AMOSTRAS):
        for j in range(AMOSTRAS):
            c = cor(x + (i + 0.5) / AMOSTRAS, y + (j + 0.5) / AMOSTRAS)
            a = c[3]
            for k in range(3):
                soma[k] += c[k] * a
            soma[3] += a
    n = AMOSTRAS * AMOSTRAS
    a = soma[3]
    if a == 0:
        return (0, 0, 0, 0)
    return (soma[0] // a, soma[1] // a, soma[2] // a, a // n)

def gravar(arquivo):
    linhas = b""
    for y in range(TAM):
        linhas += b"\x00" + b"".join(struct.pack("4B", *pixel(x, y)) for x in range(TAM))
    def bloco(tipo, dados):
        return struct.pack(">I", len(dados)) + tipo + dados + struct.pack(">I", zlib.crc32(tipo + dados) & 0xFFFFFFFF)
    png = b"\x89PNG\r\n\x1a\n" + bloco(b"IHDR", struct.pack(">IIBBBBB", TAM, TAM, 8, 6, 0, 0, 0))
    png += bloco(b"IDAT", zlib.compress(linhas, 9)) + bloco(b"IEND", b"")
    with open(arquivo, "wb") as f:
        f.write(png)

if __name__ == "__main__":
    gravar(os.path.join(os.path.dirname(os.path.abspath(__file__)), "toldex.png"))
