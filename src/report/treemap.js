// The treemap of a folder: a rectangle for each folder and file, as large as its share. Each is a button; what is too
// small to be seen is one rectangle without an entry.

const MostRectangles = 600;
const SmallestArea = 140;       // square pixels of a rectangle
const SmallestFolder = 3600;    // of a folder that shows what it contains

class Treemap {
    // opened is called with the entry of a rectangle that is clicked.
    constructor(entries, kinds, opened) {
        this.entries = entries;
        this.kinds = kinds;
        this.opened = opened;
        this.map = byId("map");
        this.folder = 0;
        this.highlighted = 0;
        this.current = 0;  // the number of the button that takes the focus
        this.buttons = [];
        this.map.addEventListener("click", event => this.onClick(event));
        this.map.addEventListener("keydown", event => this.onKey(event));
        const redraw = delayed(100, () => this.draw());
        new ResizeObserver(() => {
            if (this.map.clientWidth !== this.width || this.map.clientHeight !== this.height)
                redraw();
        }).observe(this.map);
    }

    // Shows a folder; a file in it can be highlighted.
    show(folder, highlighted) {
        const changes = folder !== this.folder || this.buttons.length === 0;
        this.folder = folder;
        this.highlighted = highlighted;
        if (changes) {
            this.current = 0;
            this.draw();
        }
        for (const button of this.buttons)
            button.classList.toggle("highlighted", this.highlighted !== 0 && Number(button.dataset.entry) === this.highlighted);
    }

    // Returns the folder as d3 takes it. The largest folders are divided first, so that the limit meets small ones.
    divide(area) {
        const {entries} = this;
        const root = {entry: this.folder, value: entries.size[this.folder]};
        const smallest = root.value * SmallestArea / area;
        const divisible = [root];
        let rectangles = 1;
        while (divisible.length > 0 && rectangles < MostRectangles) {
            divisible.sort((a, b) => a.value - b.value);
            const item = divisible.pop();
            item.children = this.childrenOf(item, Math.max(smallest, 1), MostRectangles - rectangles);
            rectangles += item.children.length;
            for (const child of item.children)
                if (child.entry !== null && entries.isFolder(child.entry) &&
                    child.value / root.value * area >= SmallestFolder)
                    divisible.push(child);
        }
        return root;
    }

    childrenOf(item, smallest, most) {
        const {size} = this.entries;
        const large = this.entries.kidsOf(item.entry).filter(entry => size[entry] >= smallest)
            .sort((a, b) => size[b] - size[a] || a - b).subarray(0, most);
        const children = Array.from(large, entry => ({entry, value: size[entry]}));
        const rest = children.reduce((left, child) => left - child.value, item.value);
        if (rest > 0)
            children.push({entry: null, value: rest});
        return children;
    }

    draw() {
        const {clientWidth: width, clientHeight: height} = this.map;
        this.width = width;
        this.height = height;
        const hadFocus = this.map.contains(document.activeElement);
        this.map.replaceChildren();
        this.buttons = [];
        if (width === 0)
            return;
        if (this.entries.size[this.folder] === 0) {
            this.map.append(element("p", "hint", "Nothing in this folder takes space."));
            return;
        }
        const text = parseFloat(getComputedStyle(this.map).fontSize);
        const layout = d3.treemap().size([width, height]).paddingInner(1).paddingOuter(2)
            .paddingTop(node => node.depth > 0 && node.children ? 1.4 * text : 2);
        layout(d3.hierarchy(this.divide(width * height))).eachBefore(node => {
            if (node.depth > 0)
                this.addRectangle(node, text, width, height);
        });
        this.setCurrent(Math.min(this.current, this.buttons.length - 1), hadFocus);
    }

    // Places and sizes are shares of the map, so that they hold on paper too.
    addRectangle(node, text, width, height) {
        const {entry} = node.data;
        const box = entry === null ? element("div", "rest") : this.makeButton(node, text);
        const place = {left: node.x0 / width, top: node.y0 / height,
            width: (node.x1 - node.x0) / width, height: (node.y1 - node.y0) / height};
        for (const [property, share] of Object.entries(place))
            box.style[property] = `${(100 * share).toFixed(3)}%`;
        this.map.append(box);
    }

    makeButton(node, text) {
        const {entries} = this;
        const {entry} = node.data;
        const isFolder = entries.isFolder(entry);
        const button = element("button", isFolder ? node.children ? "frame" : "closed" : `kind${this.kinds.of(entry)}`);
        const name = entries.name(entry);
        const share = shareText(entries.size[entry], entries.size[entries.parent[entry]]);
        const label = attributeText(`${name}, ${isFolder ? "folder, " : ""}${sizeText(entries.size[entry])}, ` +
            `${share} of ${entries.parent[entry] === 0 ? "the whole" : entries.name(entries.parent[entry])}`);
        button.type = "button";
        button.tabIndex = -1;
        button.dataset.entry = entry;
        button.title = attributeText(`${entries.pathText(entry)}\n${sizeText(entries.size[entry])}, ${share}`);
        button.setAttribute("aria-label", label);
        const isLegible = (width, height) => node.x1 - node.x0 > width * text && node.y1 - node.y0 > height * text;
        if (isLegible(3.5, 1.3)) {
            button.append(element("bdi", "", name));
            if (isLegible(6, 2.6) && !node.children)
                button.append(element("span", "", sizeText(entries.size[entry])));
        }
        this.buttons.push(button);
        return button;
    }

    setCurrent(number, focus) {
        if (this.buttons.length === 0)
            return;
        this.buttons[this.current]?.setAttribute("tabindex", -1);
        this.current = Math.min(Math.max(number, 0), this.buttons.length - 1);
        this.buttons[this.current].tabIndex = 0;
        if (focus)
            this.buttons[this.current].focus({preventScroll: true});
    }

    onClick(event) {
        const button = event.target.closest("button");
        if (button === null)
            return;
        this.setCurrent(this.buttons.indexOf(button), false);
        this.opened(Number(button.dataset.entry));
    }

    onKey(event) {
        const actions = {
            ArrowRight: () => this.setCurrent(this.current + 1, true),
            ArrowDown: () => this.setCurrent(this.current + 1, true),
            ArrowLeft: () => this.setCurrent(this.current - 1, true),
            ArrowUp: () => this.setCurrent(this.current - 1, true),
            Home: () => this.setCurrent(0, true),
            End: () => this.setCurrent(this.buttons.length - 1, true),
            Backspace: () => this.opened(this.entries.parent[this.folder]),
        };
        const action = actions[event.key];
        if (action === undefined || event.ctrlKey || event.altKey || event.metaKey)
            return;
        event.preventDefault();
        action();
    }
}
